#!/bin/bash
# Builds kelvane-cli when needed and runs it: ./run.sh export PICTURE -o SCRIPT.scr ...
# All words go to kelvane-cli; see ./run.sh --help.
#
# ./run.sh app [PICTURE...] builds the desktop program instead and starts it under Wine.
# ./run.sh package [FOLDER] builds the packages into FOLDER, by default build/packages.
set -euo pipefail
root=$(dirname "$(readlink -f "$0")")

build() (
    cd "$root"
    mkdir -p build
    exec 9>build/run.lock
    flock 9
    scripts/install.sh build 9>&-
    [ -e build/release/build.ninja ] || cmake --preset release >build/run.log 2>&1 9>&- || return 1
    cmake --build --preset release --target kelvane-cli >build/run.log 2>&1 9>&-
)

build_app() (
    cd "$root"
    mkdir -p build
    exec 9>build/run.lock
    flock 9
    scripts/install.sh build test 9>&-
    [ -e build/windows-x64/build.ninja ] || cmake --preset windows-x64 >build/run.log 2>&1 9>&- || return 1
    cmake --build --preset windows-x64 --target kelvane >build/run.log 2>&1 9>&-
)

build_packages() (
    cd "$root"
    mkdir -p build
    exec 9>build/run.lock
    flock 9
    scripts/install.sh build package 9>&-
    packaging/build.sh "$1" >build/run.log 2>&1 9>&-
)

cannot_build() {
    [ ! -s "$root/build/run.log" ] || tail -n 15 "$root/build/run.log" >&2
    echo "kelvane: could not be built" >&2
    exit 1
}

if [ "${1:-}" = app ]; then
    shift
    if [ -z "${DISPLAY:-}" ]; then
        echo "kelvane: the desktop program needs a display, and DISPLAY names none" >&2
        exit 1
    fi
    build_app || cannot_build
    exec "$root/scripts/wine-x64.sh" "$root/build/windows-x64/src/app/kelvane.exe" "$@"
fi

if [ "${1:-}" = package ]; then
    folder=$(realpath -m "${2:-$root/build/packages}")
    build_packages "$folder" || cannot_build
    ls "$folder"/*
    exit
fi

build || cannot_build
exec "$root/build/release/src/cli/kelvane-cli" "$@"
