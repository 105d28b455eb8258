#!/bin/bash
# windows.sh PACKAGES x64|x86: the portable ZIP and the setup program under Wine. Both start from a
# folder whose name is no plain one, show their window, export, and keep their settings beside.
. "$(dirname "$(readlink -f "$0")")/common.sh"
world=$2
name=$packages/kelvane-$version-$world
probe=$root/build/windows-$world/tests/packaging/window_probe.exe
case $world in
    x64) user=$root/build/wine/win64/drive_c/users/$(id -un) ;;
    x86) user=$root/build/wine/win32/drive_c/users/$(id -un) ;;
esac
installed=$user/AppData/Local/Programs/Kelvane
link="$user/AppData/Roaming/Microsoft/Windows/Start Menu/Programs/Kelvane.lnk"
uninstall_key='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Kelvane'

wine() { timeout 120 "$root/scripts/wine-$world.sh" "$@"; }
windows_path() { printf 'Z:%s' "${1//\//\\}"; }
files_in() { (cd "$1" && find . -type f | sort); }

# The programs of a folder work: the window appears and goes, the command line exports.
check_programs() {
    local folder=$1 caption
    caption=$(wine "$probe" "$(windows_path "$folder/kelvane.exe")" "$(windows_path "$root/samples/logo.png")" </dev/null)
    [[ $caption == Kelvane* ]] || fail "caption: $caption"
    grep -aq '^.*logo.png' <(tr -d '\0' <"$folder/kelvane.ini") || fail "kelvane.ini does not know the picture"
    wine "$folder/kelvane-cli.exe" export "$(windows_path "$root/samples/logo.png")" \
        -o "$(windows_path "$folder/logo.scr")" --layer 21
    check_script "$folder/logo.scr"
    rm "$folder/logo.scr"
}

# The programs say who made them and want long paths and no redirected writes.
check_resources() {
    local program texts
    for program in kelvane kelvane-cli; do
        texts=$(strings -e l "$1/$program.exe" | tr '\n' ' ')
        [[ $texts == *'CompanyName The Kelvane authors '*'LegalCopyright Copyright (c) '*"OriginalFilename $program.exe ProductName"* ]] ||
            fail "version of $program: ${texts#*VS_VERSION_INFO}"
        grep -aq '<longPathAware [^>]*>true<' "$1/$program.exe" && grep -aq 'level="asInvoker"' "$1/$program.exe" ||
            fail "$program.exe has no manifest"
    done
}

check_portable() {
    local folder="$work/Größe & Maß"
    unzip -q "$name.zip" -d "$folder"
    files_in "$folder/Kelvane" >"$work/files"
    diff "$work/files" - <<END || fail "these are not the files of the ZIP"
./EAGLE_Kelvane.chm
./LICENSE.txt
./README.txt
./THIRD-PARTY.txt
./basic-16.pal
./formats.html
./kelvane-cli.exe
./kelvane.exe
END
    [ "$(tr -d '\r' <"$folder/Kelvane/LICENSE.txt")" = "$(<"$root/LICENSE")" ]
    local part
    for part in CLI11 'GCC RUNTIME LIBRARY EXCEPTION' MinGW-w64 winpthreads; do
        grep -q "$part" "$folder/Kelvane/THIRD-PARTY.txt" || fail "the notices lack $part"
    done
    # Notepad takes it for UTF-8 by its mark.
    [ "$(head -n 1 "$folder/Kelvane/README.txt")" = $'\uFEFF'"Kelvane $version"$'\r' ]
    check_resources "$folder/Kelvane"
    check_programs "$folder/Kelvane"
}

# Ends what an earlier, interrupted run has left behind.
clean_up() {
    rm -rf "$installed" "$link"
    wine reg.exe delete "$uninstall_key" /f >/dev/null 2>&1 || true
}
registered() { wine reg.exe query "$uninstall_key" /v "$1" 2>/dev/null | tr -d '\r' | sed -n "s/^ *$1 *REG_[A-Z]* *//p"; }

uninstall() { # FOLDER
    [[ $(registered QuietUninstallString) == *'\uninstall.exe" /S' ]]
    wine "$1/uninstall.exe" /S
    # It goes on as a copy of itself, which removes itself from its folder last of all.
    local tries
    for ((tries = 0; tries < 300; ++tries)); do
        [ -z "$(registered DisplayName)" ] && return
        sleep 0.1
    done
    fail "the uninstaller does not end"
}

check_installed() {
    diff <(sort "$work/files" <(echo ./uninstall.exe)) <(files_in "$installed") || fail "installed are other files"
    [ -s "$link" ] || fail "no entry in the start menu"
    [ "$(registered DisplayVersion)" = "$version" ]
    [[ $(registered InstallLocation) == *'AppData\Local\Programs\Kelvane' ]]
    check_programs "$installed"
}

refused() { # PROGRAM ARGUMENT...
    local status=0
    wine "$@" || status=$?
    [ $status -eq 3 ] || fail "$(basename "$1") gives $status while the program runs"
    [ "$(<"$installed/README.txt")" = old ] || fail "$(basename "$1") changed the files of a running program"
}

# While the program runs, setup and uninstaller leave all as it is and say so by their exit code.
check_refusal() {
    local caption
    echo old >"$installed/README.txt"
    coproc running { wine "$probe" "$(windows_path "$installed/kelvane.exe")"; }
    local process=$running_PID
    read -r -t 60 -u "${running[0]}" caption || fail "the installed program does not start"
    refused "$name-setup.exe" /S
    # With its folder named, as with /D=, it runs in place and gives its own exit code.
    refused "$installed/uninstall.exe" /S _?=$(windows_path "$installed")
    exec {running[1]}>&-
    wait "$process" || fail "the program that ran meanwhile gives $?"
}

# An update brings the files and keeps the settings; removing leaves what the user has.
check_update_and_removal() {
    cp "$installed/kelvane.ini" "$work/settings"
    echo mine >"$installed/mine.pal"
    echo '1 2 3' >>"$installed/basic-16.pal"
    cp "$installed/basic-16.pal" "$work/palette"
    wine "$name-setup.exe" /S
    cmp "$installed/kelvane.ini" "$work/settings"
    cmp "$installed/basic-16.pal" "$work/palette"
    [ "$(<"$installed/README.txt")" != old ] || fail "the update left an old file"
    uninstall "$installed"
    [ "$(files_in "$installed" | xargs)" = './basic-16.pal ./kelvane.ini ./mine.pal' ] || fail "left: $(files_in "$installed")"
    [ ! -e "$link" ] || fail "the start menu's entry is still there"
}

# Into a folder of the user's choice; nothing is left of it.
check_chosen_folder() {
    local folder="$work/Meine Programme/Größe"
    # All that follows /D= is the folder, without quotation marks: word for word, Wine sets none.
    wine "$name-setup.exe" /S /D=$(windows_path "$folder")
    cmp <(unzip -p "$name.zip" Kelvane/kelvane.exe) "$folder/kelvane.exe"
    uninstall "$folder"
    [ ! -e "$folder" ] || fail "left: $(files_in "$folder")"
}

check_portable
clean_up
wine "$name-setup.exe" /S
check_installed
check_refusal
check_update_and_removal
check_chosen_folder
clean_up
