# Sourced by the packaging scripts: the version, the one time that all packed files bear, and what
# makes a folder's bytes depend on its files alone. Callers stand in the repository's root.
set -euo pipefail
umask 022
export LC_ALL=C TZ=UTC

version=$(sed -n 's/^project(kelvane VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)
maintainer='Kelvane maintainers <maintainers@kelvane.invalid>'

# The time of the commit; a copy of the sources without its history takes the date of the newest
# version in the list of changes.
commit_time() {
    if [ -e .git ]; then
        git log -1 --format=%ct
        return
    fi
    local date
    date=$(grep -oEm 1 '^## .* [0-9]{4}-[0-9]{2}-[0-9]{2}$' CHANGELOG.md | grep -oE '[-0-9]{10}$') || {
        echo "kelvane: neither git nor CHANGELOG.md tells a date; set SOURCE_DATE_EPOCH" >&2
        return 1
    }
    date -d "$date" +%s
}
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(commit_time)}
export SOURCE_DATE_EPOCH

# even_out FOLDER: one time for all that is in it, and the rights a fresh checkout would not tell.
even_out() {
    find "$1" -type d -exec chmod 755 {} +
    find "$1" -type f ! -perm -u+x -exec chmod 644 {} +
    find "$1" -type f -perm -u+x -exec chmod 755 {} +
    find "$1" -exec touch -h -d "@$SOURCE_DATE_EPOCH" {} +
}
