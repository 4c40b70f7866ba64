#!/usr/bin/env python3
"""Checks that every allocation of the shared library is counted: it asks the C++ library only for the kinds of `new` and
`delete` that pass through src/support/counted_new.cpp. The plain delete has no size; it frees only what a host put into
a result.

Usage: counted_allocations.py NM LIBRARY
"""
import subprocess
import sys

COUNTED = {"_Znwm", "_ZnwmSt11align_val_t", "_ZdlPvm", "_ZdlPvmSt11align_val_t"}
OF_HOSTS = {"_ZdlPv"}


def main():
    nm, library = sys.argv[1:]
    lines = subprocess.run([nm, "-D", "--undefined-only", "--format=posix", library],
                           check=True, capture_output=True, text=True).stdout.splitlines()
    asked = {line.split()[0].split("@")[0] for line in lines}
    kinds = {name for name in asked if name.startswith(("_Znw", "_Zna", "_Zdl", "_Zda"))}
    for name in sorted(kinds - COUNTED - OF_HOSTS):
        print(f"allocates or frees without being counted: {name}")
    for name in sorted(COUNTED - kinds):
        print(f"is never asked for, so nothing counts it: {name}")
    return 0 if COUNTED <= kinds <= COUNTED | OF_HOSTS else 1


if __name__ == "__main__":
    sys.exit(main())
