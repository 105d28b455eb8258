#!/bin/bash
# Builds kelvane-cli when needed and runs it: ./run.sh export PICTURE -o SCRIPT.scr ...
# All words go to kelvane-cli; see ./run.sh --help.
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

if ! build; then
    [ ! -s "$root/build/run.log" ] || tail -n 15 "$root/build/run.log" >&2
    echo "kelvane: could not be built" >&2
    exit 1
fi
exec "$root/build/release/src/cli/kelvane-cli" "$@"
