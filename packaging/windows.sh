#!/bin/bash
# windows.sh x64|x86 WORK PACKAGES: the portable ZIP and the setup program of one Windows build.
# WORK is for what is made on the way; PACKAGES takes the results.
cd "$(dirname "$(readlink -f "$0")")/.."
. packaging/common.sh
world=$1 work=$2/$1 packages=$3 tree=build/windows-$1
case $world in
    x64) triplet=x86_64-w64-mingw32 ;;
    x86) triplet=i686-w64-mingw32 ;;
esac
name=kelvane-$version-$world
# A portable copy is brought up to date by unpacking over it, so the folder bears no version.
folder=$work/Kelvane
mkdir -p "$folder"

third_party() {
    printf 'The programs hold parts of other free software, each under its own licence:\n'
    local file
    for file in packaging/third-party/*.txt; do
        printf '\n%s\n\n' ================================================================
        cat "$file"
    done
}

add_texts() {
    sed 's/$/\r/' LICENSE >"$folder/LICENSE.txt"
    third_party | sed 's/$/\r/' >"$folder/THIRD-PARTY.txt"
    # Notepad of older systems takes UTF-8 for what it is only with the mark at the beginning.
    printf '\357\273\277' >"$folder/README.txt"
    sed -e "s/@VERSION@/$version/" -e 's/$/\r/' packaging/README.txt >>"$folder/README.txt"
    cp "$tree/src/app/EAGLE_Kelvane.chm" help/formats.html res/palettes/*.pal "$folder"
}

for program in src/app/kelvane.exe src/cli/kelvane-cli.exe; do
    "$triplet-strip" -o "$folder/$(basename "$program")" "$tree/$program"
done
add_texts
cp packaging/setup-side.bmp "$work" # the setup holds its time as well
even_out "$work"
chmod 644 "$folder"/*

# A ZIP knows neither time zones nor, without -X, users.
(cd "$work" && find Kelvane -type f | sort | zip -q -X -9 -@ "$packages/$name.zip")

# What the uninstaller removes: the files that were installed and nothing else.
(cd "$folder" && find . -name '*.pal' -printf '!insertmacro RemoveUnlessEdited "%P"\n' -o \
    -type f -printf 'Delete "$INSTDIR\\%P"\n' | sort) >"$work/remove.nsh"
makensis -V2 -WX -DWORLD="$world" -DVERSION="$version" -DFOLDER="$folder" \
    -DSIDE="$work/setup-side.bmp" -DREMOVE="$work/remove.nsh" \
    -DSIZE="$(find "$folder" -type f -printf '%s\n' | awk '{ sum += $1 } END { print int(sum / 1024) }')" \
    -DOUTPUT="$packages/$name-setup.exe" packaging/kelvane.nsi
