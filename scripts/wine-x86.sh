#!/bin/bash
# Runs a 32-bit Windows program under the private Wine of wine32.sh: wine-x86.sh PROGRAM.exe ARGUMENT...
set -e
here=$(dirname "$(readlink -f "$0")")
root=$("$here/wine32.sh")
kelvane_arch=win32
kelvane_wine=$root/usr/lib/wine/wine
kelvane_wineserver=$root/usr/lib/wine/wineserver32
kelvane_fonts=$root/usr/share/wine/fonts
export LD_LIBRARY_PATH=$root/lib/i386-linux-gnu:$root/usr/lib/i386-linux-gnu
. "$here/wine.sh"
