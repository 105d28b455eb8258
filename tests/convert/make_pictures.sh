#!/bin/bash
# make_pictures.sh FOLDER: makes the pictures that the converter's tests open.
set -euo pipefail
magick=/usr/bin/convert-im6.q16 # by its whole name: other programs are called convert as well
cd "$1"

$magick -size 64x48 xc:red -size 48x64 xc:lime -size 64x48 xc:blue pages.tif
$magick -size 30x20 xc:lime \( -size 30x20 xc:red \) layers.psd
$magick -size 2x2 xc:red xc:blue -duplicate 50,0-1 hundred.gif
$magick -size 2x2 xc:red xc:blue -duplicate 500,0-1 thousand.gif
# Black on nothing: the paper below has to be white.
cat >drawing.svg <<'SVG'
<svg xmlns="http://www.w3.org/2000/svg" width="60" height="40"><rect width="30" height="40"/></svg>
SVG
$magick -size 60x40 xc:none -fill black -draw 'rectangle 0,0 29,39' transparent.webp
echo 'II* no picture' >broken.tif
touch made
