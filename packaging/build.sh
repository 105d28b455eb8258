#!/bin/bash
# Builds the packages: build.sh [FOLDER], by default build/packages. Packages of earlier builds in
# FOLDER go, other files stay.
#
#   kelvane-VERSION-x64.zip, -x86.zip              portable: unpack and start
#   kelvane-VERSION-x64-setup.exe, -x86-setup.exe  for one user, without administrator rights
#   kelvane-cli_VERSION_amd64.deb                  the command line for Debian 12
#   SHA256SUMS
#
# Packed are the programs that the tests run on. Two builds of one commit give the same bytes.
cd "$(dirname "$(readlink -f "$0")")/.."
. packaging/common.sh

build_programs() {
    local tree=$1
    shift
    [ -e "build/$tree/build.ninja" ] || cmake --preset "$tree"
    cmake --build --preset "$tree" --target "$@"
}

target=$(realpath -m "${1:-build/packages}")
mkdir -p "$(dirname "$target")"
# Everything is made in a folder beside and put in place when complete.
work=$(mktemp -d "$target.XXXXXX")
trap 'rm -rf "$work"' EXIT
packages=$work/packages
mkdir "$packages"

build_programs native kelvane-cli
build_programs windows-x64 kelvane kelvane-cli
build_programs windows-x86 kelvane kelvane-cli

packaging/windows.sh x64 "$work" "$packages"
packaging/windows.sh x86 "$work" "$packages"
packaging/deb.sh "$work" "$packages"
(cd "$packages" && sha256sum -- * >"$work/SHA256SUMS" && mv "$work/SHA256SUMS" .)

mkdir -p "$target"
rm -f "$target"/kelvane-*-x{64,86}{.zip,-setup.exe} "$target"/kelvane-cli_*.deb
mv -f "$packages"/* "$target"
