#!/bin/bash
# The Debian package: lintian finds nothing; unpacked, its program runs; manual and completion know all
# that the program does.
. "$(dirname "$(readlink -f "$0")")/common.sh"
package=$packages/kelvane-cli_${version}_$(dpkg --print-architecture).deb
dpkg-deb -R "$package" "$work/package"
cd "$work/package"
md5sum --check --strict --quiet DEBIAN/md5sums

program=$PWD/usr/bin/kelvane-cli
"$program" export "$root/samples/logo.png" -o "$work/logo.scr" --layer 21
check_script "$work/logo.scr"
[ "$("$program" --version)" = "kelvane-cli $version" ]
dependencies=$(dpkg-deb -f "$package" Depends)
[[ $dependencies == *'libgdk-pixbuf-2.0-0 (>= '* && $dependencies == *'libc6 (>= '* ]] || fail "Depends: $dependencies"

lintian --allow-root --info --display-info --fail-on error,warning,info "$package" >"$work/lintian" 2>&1 ||
    fail "$(<"$work/lintian")"
installed=$(dpkg-deb -f "$package" Installed-Size) size=$(du -sk --apparent-size usr | cut -f 1)
((installed >= size * 9 / 10 && installed <= size * 11 / 10)) || fail "Installed-Size: $installed, not about $size"
for part in 'The Kelvane authors' 'University of Cincinnati' 'GCC RUNTIME LIBRARY EXCEPTION'; do
    grep -q "$part" usr/share/doc/kelvane-cli/copyright || fail "copyright lacks $part"
done
changes=$(zcat usr/share/doc/kelvane-cli/changelog.gz)
[[ $changes == *'kelvane-cli export'* ]] && ! grep -qiE 'window|desktop|dialog' <<<"$changes" || fail "changelog: $changes"

# man warns of what it cannot set.
manual=usr/share/man/man1/kelvane-cli.1.gz
complaints=$(zcat $manual | groff -man -Tutf8 -ww -rLL=100n 2>&1 >"$work/manual")
[ -z "$complaints" ] || fail "$complaints"
text=$(zcat $manual | tr -d '\\')

. usr/share/bash-completion/completions/kelvane-cli
complete_words() { # WORD... as typed so far; the last one is being completed
    COMP_WORDS=(kelvane-cli "$@")
    COMP_CWORD=$#
    # Its compopt fails where nobody has typed.
    _kelvane_cli "$program" "${!#}" "${COMP_WORDS[COMP_CWORD - 1]}" || true
}
in_completion() {
    complete_words "${@:2}"
    [[ " ${COMPREPLY[*]} " == *" $1 "* ]] || fail "completion of ${*:2} lacks $1: ${COMPREPLY[*]}"
}

mapfile -t commands < <("$native" --help | sed -nE '/^Subcommands/,/^$/s/^  ([a-z]+) .*/\1/p')
[ ${#commands[@]} -eq 3 ] || fail "commands: ${commands[*]}"
for command in "${commands[@]}"; do
    in_completion "$command" "${command:0:1}"
    grep -qxF ".B $command" <<<"$text" || fail "the manual lacks $command"
    for option in $("$native" "$command" --help | grep -oE '^ +(-[a-z],)?--[a-z-]+' | tr -d ' ' | tr , '\n'); do
        grep -qE -- "[ \"]$option( |\"|$)" <<<"$text" || fail "the manual lacks $option"
        [[ $option != --* ]] || in_completion "$option" "$command" --
    done
done
"$native" ops | while read -r operation _; do
    grep -qxF ".B $operation" <<<"$text" || fail "the manual lacks $operation"
    in_completion "$(grep -oE '^[a-z-]+:?' <<<"$operation")" export --op "${operation:0:2}"
done
in_completion rectangle export --shape r
# Files where files stand, operations behind them.
touch sharp.png
for words in 'sharp.png apply --seed 5' 'sharp.png apply - palette :' 'sharpen apply sharp.png'; do in_completion $words sh; done
