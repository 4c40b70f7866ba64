#!/usr/bin/env python3
"""Compares the names that the shared library exports with the list that is promised: nothing more, nothing less.

Usage: exported_symbols.py NM LIBRARY LIST
"""
import subprocess
import sys


def exported(nm, library):
    lines = subprocess.run([nm, "-D", "--defined-only", "--format=posix", library],
                           check=True, capture_output=True, text=True).stdout.splitlines()
    return {line.split()[0] for line in lines if line.strip()}


def promised(path):
    with open(path, encoding="ascii") as lines:
        return {line.split()[0] for line in lines if line.strip() and not line.startswith("#")}


def main():
    nm, library, path = sys.argv[1:]
    found = exported(nm, library)
    wanted = promised(path)
    for name in sorted(found - wanted):
        print(f"exported, but not promised: {name}")
    for name in sorted(wanted - found):
        print(f"promised, but not exported: {name}")
    print(f"{len(found & wanted)} of {len(wanted)} promised names are exported")
    return 0 if found == wanted else 1


if __name__ == "__main__":
    sys.exit(main())
