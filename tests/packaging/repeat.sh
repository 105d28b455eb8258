#!/bin/bash
# Packing again, from other copies of the files, elsewhere, later and for another user gives the same
# bytes, and the checksums are those of the packages. What the programs hold of the place they were
# built in is looked for.
. "$(dirname "$(readlink -f "$0")")/common.sh"

# The sources in another place and with other times, but with the programs that are built already.
mkdir "$work/copy"
ln -s "$root"/{build,.git,CMakeLists.txt,CMakePresets.json,CHANGELOG.md} "$work/copy"
cp -r "$root"/{LICENSE,help,packaging,res} "$work/copy"
(umask 077 && TZ=Asia/Tokyo LC_ALL=C "$work/copy/packaging/build.sh" "$work/again" >/dev/null)
diff -r "$packages" "$work/again" || fail "two runs differ"
cd "$packages"
sha256sum --check --strict --quiet SHA256SUMS
[ "$(ls | grep -vcx SHA256SUMS)" -eq "$(wc -l <SHA256SUMS)" ] || fail "SHA256SUMS is not complete"

programs=("$root"/build/{native/src/cli/kelvane-cli,windows-x{64,86}/src/{app/kelvane,cli/kelvane-cli}.exe})
if grep -lF "$root" "${programs[@]}"; then fail "these programs know where they were built"; fi
for program in "${programs[@]:1}"; do
    # The time in a Windows program's header: 8 bytes behind the beginning that byte 60 tells.
    header=$(od -A n -t u4 -j 60 -N 4 "$program")
    [ "$(od -A n -t u4 -j $((header + 8)) -N 4 "$program")" -eq 0 ] || fail "$program knows when it was linked"
done
