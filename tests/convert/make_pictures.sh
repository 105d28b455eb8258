#!/bin/bash
# make_pictures.sh FOLDER: makes the pictures that the converter's tests open.
set -euo pipefail
magick=/usr/bin/convert-im6.q16 # by its whole name: other programs are called convert as well
cd "$1"

$magick -size 64x48 xc:red -size 48x64 xc:lime -size 64x48 xc:blue pages.tif
$magick -size 30x20 xc:lime \( -size 30x20 xc:red \) layers.psd

# Frames of 2 x 2 pixels, red and blue in turn; $magick would take a minute for a thousand.
animation() { # number of frames
    local frame='\x2C\0\0\0\0\2\0\2\0\0\2\3%b\x14\0' i
    printf 'GIF89a\2\0\2\0\x80\0\0\xFF\0\0\0\0\xFF'
    for ((i = 0; i < $1; i += 2)); do printf "$frame$frame" '\x04\x08' '\x4C\x98'; done
    printf ';'
}
animation 102 >hundred.gif
animation 1002 >thousand.gif

# Black on nothing: the paper below has to be white.
cat >drawing.svg <<'SVG'
<svg xmlns="http://www.w3.org/2000/svg" width="60" height="40"><rect width="30" height="40"/></svg>
SVG
$magick -size 60x40 xc:none -fill black -draw 'rectangle 0,0 29,39' transparent.webp
echo 'II* no picture' >broken.tif
touch made
