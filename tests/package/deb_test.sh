#!/usr/bin/env bash
# Makes the Debian package, installs it into a scratch root and runs the program from there.
#   deb_test.sh BUILD_DIR SOURCE_DIR
set -euo pipefail
build=$1
source=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

(cd "$build" && cpack -G DEB -B "$scratch" >"$scratch/log" 2>&1) || { cat "$scratch/log"; exit 1; }
package=$(find "$scratch" -maxdepth 1 -name '*.deb')

depends=$(dpkg-deb -f "$package" Depends)
for library in libfreetype6 libfontconfig1 libtinyxml2-9 libopenjp2-7 zlib1g libcairo2 libpng16-16 libc6 libstdc++6; do
  [[ $depends == *"$library"* ]] || { echo "the package does not depend on $library: $depends"; exit 1; }
done

root=$scratch/root
mkdir -p "$root/var/lib/dpkg/info" "$root/var/lib/dpkg/updates" "$root/var/log"
touch "$root/var/lib/dpkg/status"
dpkg --root="$root" --force-depends --force-not-root --force-script-chrootless -i "$package" >"$scratch/log" 2>&1 ||
  { cat "$scratch/log"; exit 1; }

library=$(dirname "$(find "$root" -name 'libdrawload.so.0')")
LD_LIBRARY_PATH=$library "$root/usr/bin/drawload" info "$source/examples/bracket.dxf"
pc=$(find "$root" -name drawload.pc)
includes=$(PKG_CONFIG_PATH=$(dirname "$pc") pkg-config --variable=includedir drawload)
[ "$(realpath "$includes")" = "$(realpath "$root/usr/include")" ] || { echo "pkg-config finds the headers in $includes"; exit 1; }
for part in usr/share/man/man1/drawload.1 usr/share/man/man3/libdrawload.3 usr/include/drawload/exports.h \
  usr/share/bash-completion/completions/drawload usr/share/doc/drawload/examples/host/host.cpp; do
  [ -e "$root/$part" ] || [ -e "$root/$part.gz" ] || { echo "the package lacks $part"; exit 1; }
done
doc=$root/usr/share/doc/drawload
cmp "$source/LICENSE" "$doc/copyright"
[ ! -e "$doc/LICENSE" ] || { echo "the package has the license twice"; exit 1; }
for file in "$source/NOTICE" "$source"/docs/*.md; do
  cmp "$file" "$doc/$(basename "$file")"
done
