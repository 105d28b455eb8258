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
mapfile -t code < <(find $(folders src res tests bench fuzz help packaging scripts cmake) ./*.sh CMakeLists.txt \
    -type f -regextype posix-extended \
    -regex '.*\.(cpp|h|inl|rc|sh|pl|nsi|bash|cmake)|.*CMakeLists.txt' | sort)
mapfile -t sources < <(find $(folders src res tests bench fuzz) -name '*.cpp' -o -name '*.h' | sort)

complain() {
    [ -z "$2" ] || { printf '%s:\n%s\n' "$1" "$2" >&2; status=1; }
}

# Lines that are not blank of the C++ and resource files under the folders.
lines() {
    find "$@" -name '*.cpp' -o -name '*.h' -o -name '*.rc' | xargs cat | grep -c '[^[:space:]]'
}
code_lines=$(lines src res)
test_lines=$(lines tests)
share="tests: $test_lines lines to $code_lines of src and res ($((100 * test_lines / code_lines)) %)"
echo "$share"
((3 * test_lines <= code_lines && 4 * test_lines >= code_lines)) ||
    complain "the tests are to be a quarter to a third of src and res" "$share"

# What the CMake files of src say: "FOLDER is LIBRARY", "FOLDER links LIBRARY".
cmake_libraries() {
    local file
    for file in src/*/CMakeLists.txt; do
        sed 's/#.*//; s/[()]/ & /g' "$file" | tr -s '[:space:]' '\n' |
            awk -v folder="$(basename "$(dirname "$file")")" '
                $0 == "kelvane_library" { getline; getline; print folder, "is", $0; inside = 1; next }
                $0 == ")" { inside = links = 0 }
                $0 == "LINKS" { links = inside }
                links && /^kelvane_/ { print folder, "links", $0 }'
    done
}
# "FOLDER OTHER" for every other folder of which FOLDER links a library.
folder_links() {
    awk '$2 == "is" { folder[$3] = $1 }
         $2 == "links" { from[++n] = $1; to[n] = $3 }
         END { for (i = 1; i <= n; ++i) if (folder[to[i]] != from[i]) print from[i], folder[to[i]] }' \
        <(cmake_libraries) | sort -u
}
folder_links=$(folder_links)

# A folder may include itself and those that it links. res/ids.h, which has no folder before its
# name, is found only where CMake gives the folder res.
check_layers() {
    local line folder file
    declare -A allowed
    while read -r line; do allowed[$line]=yes; done <<<"$folder_links"
    grep -rnE '^ *# *include "' src | while read -r line; do
        folder=${line#src/} folder=${folder%%/*}
        file=${line#*\"} file=${file%%\"*}
        [[ $file == ids.h || $file == "$folder"/* || ${allowed[$folder ${file%%/*}]:-} ]] || echo "$line"
    done
}
complain "includes of folders that CMake does not link" "$(check_layers)"
complain "folders that link each other" "$(tsort <<<"$folder_links" 2>&1 >/dev/null || true)"

system_headers='^[^:]*:[0-9]+: *# *include *<(windows|windowsx|winuser|wingdi|winbase|commctrl|commdlg|shell[a-z0-9]*|shlobj|shlwapi|ole[a-z0-9]*|objbase|wincodec|unistd|sys/[a-z]+)\.h>'
complain "system headers outside the platform folders" \
    "$(grep -rnE '#' src/base src/image src/process src/reduce src/export src/engine src/cli | grep -E "$system_headers" || true)"
complain "platform conditionals (declare in a header, let the build pick the source)" \
    "$(grep -rnE '^ *# *(if|ifdef|ifndef|elif).*(_WIN32|_WIN64|__linux__|__unix__|__MINGW|_MSC_VER)' "${sources[@]}" || true)"
complain "more than 600 lines" \
    "$(wc -l "${sources[@]}" "${code[@]}" | awk '$2 != "total" && $1 > 600' | sort -u)"
complain "not formatted (clang-format -i)" \
    "$(clang-format --dry-run -Werror $(printf '%s\n' "${sources[@]}" | grep -v '^res/') 2>&1 | grep -E 'error:' || true)"
exit $status
