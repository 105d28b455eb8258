#!/bin/bash
# install.sh KIND...: installs what is missing of the packages that packages.txt lists for each
# KIND. Says nothing and needs no rights when all are there.
set -euo pipefail
here=$(dirname "$(readlink -f "$0")")

fail() {
    printf 'kelvane: %s\n' "$@" >&2
    exit 1
}

mapfile -t wanted < <(printf '%s\n' "$@" |
    awk 'NR == FNR { kinds[$1]; next } $1 in kinds && !seen[$2]++ { print $2 }' - "$here/packages.txt")

if [ -z "$(type -P dpkg-query)" ]; then
    fail "this is not a Debian system; please provide what these packages hold: ${wanted[*]}"
fi

# dpkg-query fails for names it has never heard of: those are missing as well.
present=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "${wanted[@]}" 2>&1 || true)
missing=()
for package in "${wanted[@]}"; do
    grep -qxF "$package installed" <<<"$present" || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    [ -n "$(type -P sudo)" ] ||
        fail "these packages are missing, and installing them needs root or sudo: ${missing[*]}"
    as_root=(sudo)
fi

echo "kelvane: installing ${missing[*]}" >&2
log=$(mktemp)
trap 'rm -f "$log"' EXIT
apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q)
if ! { "${apt[@]}" update && "${apt[@]}" install -y --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
    tail -n 15 "$log" >&2
    fail "could not install: ${missing[*]}"
fi
