#!/usr/bin/env python3
"""A release build carries what the compiler and the linker have against errors in memory.

Usage: hardening_test.py READELF FILE..."""

import subprocess
import sys


def readelf(program, option, path):
    return subprocess.run([program, "-W", option, path], check=True, capture_output=True, text=True).stdout


def missing(program, path):
    """What `path` lacks, in words."""
    symbols = readelf(program, "--dyn-syms", path)
    segments = readelf(program, "-l", path)
    dynamic = readelf(program, "-d", path)
    stack = next(line for line in segments.splitlines() if "GNU_STACK" in line)
    guarded = [line for line in symbols.splitlines() if "_chk@" in line and "__stack_chk_fail" not in line]
    wanted = {
        "stack protection": "__stack_chk_fail" in symbols,
        "fortified functions": bool(guarded),
        "tables that cannot be written (relro)": "GNU_RELRO" in segments,
        "binding of all names at the start (now)": "BIND_NOW" in dynamic,
        "a stack that cannot be run": " RWE " not in stack,
        "code that can lie anywhere": "Type:" in readelf(program, "-h", path) and "DYN" in readelf(program, "-h", path),
    }
    return [what for what, is_there in wanted.items() if not is_there]


def main():
    program, *paths = sys.argv[1:]
    failures = [f"{path} lacks {what}" for path in paths for what in missing(program, path)]
    print("\n".join(failures))
    return 1 if failures or not paths else 0


if __name__ == "__main__":
    sys.exit(main())
