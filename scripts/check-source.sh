#!/bin/bash
# check-source.sh: the house rules that a compiler does not see. Prints the tests' share of the
# code; fails with the offending lines when a rule is broken.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
status=0

folders() {
    for folder in "$@"; do [ ! -d "$folder" ] || echo "$folder"; done
}
# Whatever is written in a language for machines: programs, resources, scripts, build files.
code_in() {
    find "$@" -type f -regextype posix-extended \
        -regex '.*\.(cpp|h|inl|rc|sh|pl|nsi|bash|cmake)|.*/CMakeLists.txt' | sort
}
mapfile -t code < <(code_in $(folders src res bench fuzz help packaging scripts cmake) ./*.sh CMakeLists.txt)
mapfile -t tests < <(code_in tests)
mapfile -t sources < <(find $(folders src res tests bench fuzz) -name '*.cpp' -o -name '*.h' | sort)

complain() {
    [ -z "$2" ] || { printf '%s:\n%s\n' "$1" "$2" >&2; status=1; }
}

lines() { cat "$@" | grep -c '[^[:space:]]'; }
code_lines=$(lines "${code[@]}")
test_lines=$(lines "${tests[@]}")
echo "tests: $test_lines lines to $code_lines of code ($((100 * test_lines / code_lines)) %)"

# Which folders each folder of src may include, besides itself.
check_layers() {
    local engine='platform image process reduce export engine' folder allowed file line
    declare -A may=(
        [platform]='image' [image]='platform' [process]='platform image' [view]='image process'
        [reduce]='platform image process' [export]='platform image process reduce'
        [engine]='platform image process reduce export'
        [cli]="$engine" [win]='platform image res' [settings]='platform image export win res'
        [convert]='platform image win settings res' [dialogs]="$engine win settings convert res"
        [app]="$engine view win settings convert dialogs res")
    for folder in src/*/; do
        folder=$(basename "$folder")
        [ -n "${may[$folder]:-}" ] || { echo "src/$folder: no rule for this folder"; continue; }
        allowed="$folder ${may[$folder]}"
        grep -rnE '^ *# *include "' "src/$folder" | while read -r line; do
            file=$(sed -E 's/.*"([^"]*)".*/\1/; s|^ids.h$|res/ids.h|' <<<"$line")
            [[ " $allowed " == *" ${file%%/*} "* ]] || echo "$line"
        done || true
    done
}
complain "includes against the direction of the layers" "$(check_layers)"

system_headers='^[^:]*:[0-9]+: *# *include *<(windows|windowsx|winuser|wingdi|winbase|commctrl|commdlg|shell[a-z0-9]*|shlobj|shlwapi|ole[a-z0-9]*|objbase|wincodec|unistd|sys/[a-z]+)\.h>'
complain "system headers outside the platform folders" \
    "$(grep -rnE '#' src/image src/process src/reduce src/export src/engine src/cli | grep -E "$system_headers" || true)"
complain "platform conditionals (declare in a header, let the build pick the source)" \
    "$(grep -rnE '^ *# *(if|ifdef|ifndef|elif).*(_WIN32|_WIN64|__linux__|__unix__|__MINGW|_MSC_VER)' "${sources[@]}" || true)"
complain "more than 600 lines" \
    "$(wc -l "${sources[@]}" "${code[@]}" | awk '$2 != "total" && $1 > 600' | sort -u)"
complain "not formatted (clang-format -i)" \
    "$(clang-format --dry-run -Werror $(printf '%s\n' "${sources[@]}" | grep -v '^res/') 2>&1 | grep -E 'error:' || true)"
exit $status
