#!/bin/bash
# Builds kelvane-cli when needed and runs it: ./run.sh export PICTURE -o SCRIPT.scr ...
# All words go to kelvane-cli; see ./run.sh --help.
#
# ./run.sh app [PICTURE...] builds the desktop program instead and starts it under Wine.
# ./run.sh package [FOLDER] builds the packages into FOLDER, by default build/packages.
set -euo pipefail
root=$(dirname "$(readlink -f "$0")")

# build KINDS COMMAND...: installs the packages of these kinds and runs the command in the
# repository, one build at a time.
build() (
    cd "$root"
    mkdir -p build
    exec 9>build/run.lock
    flock 9
    scripts/install.sh $1 9>&-
    shift
    "$@" >build/run.log 2>&1 9>&-
)

program() { # tree, target
    [ -e "build/$1/build.ninja" ] || cmake --preset "$1" || return 1
    cmake --build --preset "$1" --target "$2"
}

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
    build "build test" program windows-x64 kelvane || cannot_build
    exec "$root/scripts/wine-x64.sh" "$root/build/windows-x64/src/app/kelvane.exe" "$@"
fi

if [ "${1:-}" = package ]; then
    folder=$(realpath -m "${2:-$root/build/packages}")
    build "build package" packaging/build.sh "$folder" || cannot_build
    ls "$folder"/*
    exit
fi

build build program release kelvane-cli || cannot_build
exec "$root/build/release/src/cli/kelvane-cli" "$@"
