#!/bin/bash
# check.sh: builds the help and reads it back. Every page in both languages, in the contents and
# under its context number; every link, picture and caption right; the same bytes each time.
set -euo pipefail
root=$(dirname "$(readlink -f "$0")")/../..
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$root/help/build.sh" "$work/one"
(cd / && TZ=Asia/Tokyo LC_ALL=C "$root/help/build.sh" "$work/two")
cmp "$work/one/EAGLE_Kelvane.chm" "$work/two/EAGLE_Kelvane.chm"

cd "$work/one"
chmls extractall EAGLE_Kelvane.chm pages >log 2>&1 || { cat log >&2; exit 1; }
chmls extractalias EAGLE_Kelvane.chm >log 2>&1 || { cat log >&2; exit 1; }
for part in SYSTEM WINDOWS STRINGS; do chmls extract EAGLE_Kelvane.chm "/#$part" "$part" >log 2>&1; done
perl "$root/tests/help/check.pl" "$root" pages EAGLE_Kelvane.ali
