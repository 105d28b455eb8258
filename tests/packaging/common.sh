# Sourced by the tests of the packages: "fail", the root of the sources, the packages' version and
# an empty folder $work that goes when the test ends. The first word is the folder of packages.
set -euo pipefail
root=$(readlink -f "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../..")
packages=$(readlink -f "$1")
version=$(sed -n 's/^project(kelvane VERSION \([0-9.]*\) .*/\1/p' "$root/CMakeLists.txt")
export LC_ALL=C.UTF-8

fail() {
    printf '%s\n' "$@" >&2
    exit 1
}
trap 'echo "line $LINENO: $BASH_COMMAND" >&2' ERR

work=$(mktemp -d "$packages-test.XXXXXX")
trap 'rm -rf "$work"' EXIT

# The script that the program under test is to write of the sample.
native=$root/build/native/src/cli/kelvane-cli
"$native" export "$root/samples/logo.png" -o "$work/expected.scr" --layer 21

check_script() { cmp "$1" "$work/expected.scr" || fail "$1 is not what this build writes"; }
