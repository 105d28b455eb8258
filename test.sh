#!/bin/bash
# Builds everything and runs every test: natively, with sanitizers, as 64-bit and 32-bit Windows
# programs under Wine, the fuzz targets on their corpus, and the packages. Arguments go to ctest
# (-R NAME).
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"
trees=(native native-asan windows-x64 windows-x86 fuzz)

scripts/install.sh build test package
scripts/wine32.sh | sed "s/^/32-bit Wine: /"
scripts/imagemagick.sh | sed "s/^/ImageMagick: /"
scripts/check-source.sh

mkdir -p build
build_tree() {
    local log=build/$1.log
    echo "building $1"
    if ! { { [ -e "build/$1/build.ninja" ] || cmake --preset "$1"; } && cmake --build --preset "$1"; } >"$log" 2>&1; then
        grep -E -m 1 -A 20 'error|FAILED|Error' "$log" >&2 || tail -n 30 "$log" >&2
        echo "kelvane: $1 could not be built; all of it is in $log" >&2
        exit 1
    fi
}
for tree in "${trees[@]}"; do build_tree "$tree"; done

xvfb=
stop_servers() {
    scripts/wine-x64.sh --server -k || true
    scripts/wine-x86.sh --server -k || true
    [ -z "$xvfb" ] || kill "$xvfb" || true
}
trap stop_servers EXIT

start_xvfb() {
    # Xvfb picks a free display number and writes it when it is ready for programs.
    rm -f build/display
    mkfifo build/display
    Xvfb -displayfd 3 -screen 0 1920x1200x24 -nolisten tcp 3>build/display 2>build/xvfb.log &
    xvfb=$!
    local number
    if ! read -r -t 30 number <build/display; then
        cat build/xvfb.log >&2
        echo "kelvane: no X server for the window tests" >&2
        exit 1
    fi
    export DISPLAY=:$number
}
[ -n "${DISPLAY:-}" ] || start_xvfb

# With a server that stays, a Windows program starts in a tenth of the time. Wine's services stay
# as well, with the output of whoever started them: were that a test, ctest would wait for them.
start_wine() {
    local log=build/services-$1.log
    scripts/wine-$1.sh --server -k || true # one that an interrupted run left behind
    if ! { scripts/wine-$1.sh --server -p && timeout 60 scripts/wine-$1.sh wineboot.exe; } >"$log" 2>&1; then
        cat "$log" >&2
        echo "kelvane: Wine for $1 programs does not start" >&2
        exit 1
    fi
}
for world in x64 x86; do start_wine "$world"; done

printf 'subdirs("%s")\n' "${trees[@]}" >build/CTestTestfile.cmake
timeout 1800 ctest --test-dir build -j2 --output-on-failure --no-tests=error "$@"
