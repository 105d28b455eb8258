# Sourced by the packaging scripts: the version, the one time that all packed files bear, and what
# makes a folder's bytes depend on its files alone. Callers stand in the repository's root.
set -euo pipefail
umask 022
export LC_ALL=C TZ=UTC

version=$(sed -n 's/^project(kelvane VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)
maintainer='Kelvane maintainers <maintainers@kelvane.invalid>'

# The time of the commit. The files of an exported archive bear it themselves.
commit_time() {
    if [ -e .git ] && git -c safe.directory="$PWD" log -1 --format=%ct 2>/dev/null; then return; fi
    stat -L -c %Y CMakeLists.txt
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
