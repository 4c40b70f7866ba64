#!/usr/bin/env bash
# Installs the library into a scratch prefix and builds the host examples, in C++ and in C, against it both ways.
#   install_test.sh BUILD_DIR SOURCE_DIR C++_COMPILER C_COMPILER COMPILER_FLAGS
set -euo pipefail
build=$1
source=$2
compiler=$3
c_compiler=$4
flags=$5

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
prefix=$scratch/the\ prefix
cmake --install "$build" --prefix "$prefix" >/dev/null

drawing=$source/examples/bracket.dxf

# expect HOST PATTERN: the host reads the drawing and prints a line like that, and tells of a drawing that is not there.
expect() {
  "$1" "$drawing" >"$scratch/output"
  grep -q "$2" "$scratch/output"
  ! "$1" "$scratch/missing.dxf" 2>"$scratch/output" || { echo "$1 does not tell of a missing drawing"; exit 1; }
  grep -q 'nothing could be read' "$scratch/output"
}

cmake -S "$source/examples/host" -B "$scratch/with-cmake" -DCMAKE_PREFIX_PATH="$prefix" \
  -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_C_COMPILER="$c_compiler" \
  -DCMAKE_C_FLAGS="$flags" >/dev/null
cmake --build "$scratch/with-cmake" >/dev/null
expect "$scratch/with-cmake/host" '^curve #'
expect "$scratch/with-cmake/host_c" '^[1-9][0-9]* results$'

pc=$(find "$prefix" -name drawload.pc)
plain=$scratch/prefix
mv "$prefix" "$plain"
export PKG_CONFIG_PATH
PKG_CONFIG_PATH=$(dirname "${pc/"$prefix"/"$plain"}")
library=$(pkg-config --variable=libdir drawload)
# shellcheck disable=SC2046,SC2086
"$compiler" -std=c++17 $flags "$source/examples/host/host.cpp" \
  $(pkg-config --cflags --libs drawload) -Wl,-rpath,"$library" -o "$scratch/host"
expect "$scratch/host" '^curve #'
# shellcheck disable=SC2046,SC2086
"$c_compiler" -std=c99 $flags "$source/examples/host/host.c" \
  $(pkg-config --cflags --libs drawload) -Wl,-rpath,"$library" -o "$scratch/host_c"
expect "$scratch/host_c" '^[1-9][0-9]* results$'

"$plain/bin/drawload" info "$drawing" >/dev/null
# Where Debian's zsh looks: below /usr/local and below /usr.
for folder in site-functions vendor-completions; do
  [ -e "$plain/share/zsh/$folder/_drawload" ] || { echo "zsh finds no completion in $folder"; exit 1; }
done

# The license, what is compiled in, and the documents.
for file in "$source"/LICENSE "$source"/NOTICE "$source"/docs/*.md; do
  cmp "$file" "$plain/share/doc/drawload/$(basename "$file")"
done
for project in stb_image UTF8-CPP Boost CLI11 nlohmann-json; do
  grep -q "$project" "$plain/share/doc/drawload/NOTICE" || { echo "NOTICE does not name $project"; exit 1; }
done
echo "the host programs and the installed program read $drawing"
