#!/usr/bin/env bash
# Installs the Python module into a fresh virtual environment, without the network and without a compiler.
#   pip_test.sh MODULE_FOLDER
set -euo pipefail
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cp -r "$1" "$scratch/source"
/usr/bin/python3 -m venv "$scratch/venv"
PIP_NO_INDEX=1 CC=false CXX=false "$scratch/venv/bin/pip" install --quiet --disable-pip-version-check "$scratch/source"
cd "$scratch"
"$scratch/venv/bin/python" -c '
import drawload, pathlib, sys
folder = pathlib.Path(drawload.__file__).parent
assert str(folder).startswith(sys.prefix), folder
assert (folder / "py.typed").exists()
print("installed", sorted(drawload.__all__))
'
