#!/usr/bin/env bash
# Installs the library into a scratch prefix and builds the host example against it both ways.
#   install_test.sh BUILD_DIR SOURCE_DIR COMPILER COMPILER_FLAGS
set -euo pipefail
build=$1
source=$2
compiler=$3
flags=$4

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
prefix=$scratch/the\ prefix
cmake --install "$build" --prefix "$prefix" >/dev/null

drawing=$source/examples/bracket.dxf
expect_curves() {
  "$1" "$drawing" >"$scratch/output"
  grep -q '^curve #' "$scratch/output"
}

cmake -S "$source/examples/host" -B "$scratch/with-cmake" -DCMAKE_PREFIX_PATH="$prefix" \
  -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_FLAGS="$flags" >/dev/null
cmake --build "$scratch/with-cmake" >/dev/null
expect_curves "$scratch/with-cmake/host"

pc=$(find "$prefix" -name drawload.pc)
plain=$scratch/prefix
mv "$prefix" "$plain"
export PKG_CONFIG_PATH
PKG_CONFIG_PATH=$(dirname "${pc/"$prefix"/"$plain"}")
library=$(pkg-config --define-prefix --variable=libdir drawload)
# shellcheck disable=SC2046,SC2086
"$compiler" -std=c++17 $flags "$source/examples/host/host.cpp" \
  $(pkg-config --define-prefix --cflags --libs drawload) -Wl,-rpath,"$library" -o "$scratch/host"
expect_curves "$scratch/host"

"$plain/bin/drawload" info "$drawing" >/dev/null
echo "both host programs and the installed program read $drawing"
