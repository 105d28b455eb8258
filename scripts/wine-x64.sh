#!/bin/bash
# Runs a 64-bit Windows program under Debian's Wine: wine-x64.sh PROGRAM.exe ARGUMENT...
set -e
kelvane_arch=win64
kelvane_wine=/usr/lib/wine/wine64
kelvane_wineserver=/usr/lib/wine/wineserver64
kelvane_fonts=/usr/share/wine/fonts
. "$(dirname "$(readlink -f "$0")")/wine.sh"
