# Sourced by wine-x64.sh and wine-x86.sh, which set: kelvane_arch (win64 or win32),
# kelvane_wine and kelvane_wineserver (programs) and kelvane_fonts (folder). Runs "$@" under Wine
# with a prefix of this work tree, never the user's own; the prefix is made on first use.
#
#   wine-x64.sh PROGRAM.exe ARGUMENT...   run a program
#   wine-x64.sh --server OPTION           speak to the prefix's server: -p stays until -k ends it
prefixes=$(dirname "$(readlink -f "$0")")/../build/wine
mkdir -p "$prefixes"
prefixes=$(readlink -f "$prefixes")
export WINEARCH=$kelvane_arch WINEPREFIX=$prefixes/$kelvane_arch WINESERVER=$kelvane_wineserver
# Wine takes the names of files for ASCII where no locale says otherwise.
[[ ${LC_ALL:-${LANG:-}} == *UTF-8 ]] || export LC_ALL=C.UTF-8
# The help's tests put an hhctrl.ocx into System32, which Wine would pass over for its own.
# No .NET, no browser, and no entries in the menus of the desktop outside.
export WINELOADER=$kelvane_wine WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES="mscoree,mshtml=;hhctrl.ocx=n,b"

# Nobody manages windows on the tests' X server: Wine would wait two seconds for each of them. The
# program itself (run.sh app) runs on a desktop.
set_window_management() {
    local key='HKCU\Software\Wine'
    timeout 60 "$kelvane_wine" reg.exe add "$key\\X11 Driver" /v Managed /d N /f &&
        timeout 60 "$kelvane_wine" reg.exe add "$key\\AppDefaults\\kelvane.exe\\X11 Driver" \
            /v Managed /d Y /f
}

# Debian keeps Wine's own fonts where Wine does not look: titles would have digits for buttons, and
# dialogs another font than on Windows.
add_fonts() {
    ln -s "$kelvane_fonts"/*.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
}

# A prefix is made anew when this file has changed.
stamp=$WINEPREFIX/made-by-$(cksum <"$(dirname "$(readlink -f "$0")")/wine.sh" | cut -d ' ' -f 1)

make_prefix() {
    rm -rf "$WINEPREFIX"
    timeout 120 "$kelvane_wine" wineboot.exe -i >"$prefixes/$WINEARCH.log" 2>&1 &&
        set_window_management >>"$prefixes/$WINEARCH.log" 2>&1 && add_fonts &&
        timeout 60 "$kelvane_wineserver" -w && touch "$stamp" && return
    tail -n 15 "$prefixes/$WINEARCH.log" >&2
    echo "kelvane: Wine could not set up $WINEPREFIX" >&2
    exit 1
}

if [ ! -e "$stamp" ]; then
    # Two tests may start together; the server must not inherit the lock.
    exec 9>"$prefixes/$WINEARCH.lock"
    flock 9
    [ -e "$stamp" ] || make_prefix 9>&-
    exec 9>&-
fi

if [ "$1" = --server ]; then
    shift
    exec "$kelvane_wineserver" "$@"
fi
exec "$kelvane_wine" "$@"
