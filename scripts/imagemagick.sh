#!/bin/bash
# imagemagick.sh: prints the folder of ImageMagick's Windows programs, which the tests run under
# Wine, and makes it first when it is not there: x64/ and x86/, each with convert.exe, identify.exe
# and magick.exe. These are one program, which does what its name says.
#
# npm fetches them; the lock file in tests/convert/imagemagick pins them by their hash.
set -euo pipefail
here=$(dirname "$(readlink -f "$0")")
. "$here/made_once.sh"
made_once imagemagick 1 "get ImageMagick for the tests"

# The packages are large, and many machines have npm from elsewhere.
[ -n "$(type -P npm)" ] || "$here/install.sh" npm 9>&-

echo "kelvane: fetching ImageMagick's Windows programs for the tests (once, about 12 MB)" >&2

mkdir "$work/npm"
cp "$here"/../tests/convert/imagemagick/package*.json "$work/npm"
timeout 300 npm ci --prefix "$work/npm" --ignore-scripts --no-audit --no-fund >"$log" 2>&1 9>&-
programs=$work/npm/node_modules/@hakuneko/imagemagick-binaries/bin/win32
for world in x64:amd64 x86:i386; do
    folder=$work/root/${world%:*}
    mkdir -p "$folder"
    mv "$programs/${world#*:}/convert.exe" "$folder/convert.exe"
    ln "$folder/convert.exe" "$folder/identify.exe"
    ln "$folder/convert.exe" "$folder/magick.exe"
done
touch "$work/root/complete"
rm -rf "$root"
mv "$work/root" "$root"
echo "$root"
