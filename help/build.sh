#!/bin/bash
# build.sh OUTPUT_FOLDER: compiles the help of both languages to OUTPUT_FOLDER/EAGLE_Kelvane.chm.
# Two runs give the same bytes, wherever they run.
#
# contents.txt is the table of contents; a page's title and index words come from its own head, its
# context number from res/ids/: help page "export" is IDD_EXPORT or IDH_EXPORT. English numbers are
# higher by the string table's offset.
set -euo pipefail
here=$(dirname "$(readlink -f "$0")")
ids=("$here"/../res/ids.h "$here"/../res/ids/*.h)
[ $# -eq 1 ] || { echo "usage: help/build.sh OUTPUT_FOLDER" >&2; exit 2; }
mkdir -p "$1"
output=$(readlink -f "$1")/EAGLE_Kelvane.chm

fail() {
    printf 'help/build.sh: %s\n' "$@" >&2
    exit 1
}
[ -n "$(type -P chmcmd)" ] || fail "chmcmd is missing (Debian package fp-utils)"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

number_of() { # symbol
    awk -v symbol="$1" '$1 == "#define" && $2 == symbol { print $3 }' "${ids[@]}"
}
offset=$(number_of KELVANE_ENGLISH_OFFSET)
[ -n "$offset" ] || fail "res/ids.h has no KELVANE_ENGLISH_OFFSET"

context_number() { # language page
    local name number
    name=$(tr a-z- A-Z_ <<<"$2")
    number=$(number_of "IDH_$name")$(number_of "IDD_$name")
    [ -n "$number" ] || fail "page $2 has neither IDH_$name nor IDD_$name in res/ids"
    [ "$1" = de ] || number=$((number + offset))
    echo "$number"
}

# HTML Help knows nothing of UTF-8 in its contents, its index and its search.
convert_pages() {
    local page
    for page in "$here"/$1/*.html; do
        grep -q 'charset=utf-8' "$page" || fail "$page does not say charset=utf-8"
        sed 's/charset=utf-8/charset=windows-1252/' "$page" |
            iconv -f UTF-8 -t CP1252 >"$1/$(basename "$page")" || fail "$page: cannot be converted"
    done
}

title_of() { sed -n 's|.*<title>\(.*\)</title>.*|\1|p' "$1"; }
keywords_of() {
    sed -n 's|.*<meta name="keywords" content="\(.*\)">.*|\1|p' "$1" | sed 's/ *; */\n/g'
}
entry() { # name page
    printf '<li><object type="text/sitemap"><param name="Name" value="%s"><param name="Local" value="%s"></object>\n' "$1" "$2"
}

# A book for each language; below it the depth of an entry is its indentation by two blanks.
contents() { # language name
    local line page depth=0 wanted
    printf '<li><object type="text/sitemap"><param name="Name" value="%s"></object>\n' "$2"
    while IFS= read -r line; do
        page=${line##* }
        wanted=$(((${#line} - ${#page}) / 2 + 1))
        for ((; depth < wanted; ++depth)); do echo '<ul>'; done
        for ((; depth > wanted; --depth)); do echo '</ul>'; done
        entry "$(title_of "$1/$page.html")" "$1/$page.html"
    done <"$here/contents.txt"
    for ((; depth > 0; --depth)); do echo '</ul>'; done
}
index_words() {
    local page word
    for page in "$1"/*.html; do
        keywords_of "$page" | while IFS= read -r word; do entry "$word" "$page"; done
    done
}
site_map() {
    printf '<!DOCTYPE HTML PUBLIC "-//IETF//DTD HTML//EN">\n<html><head></head><body>\n'
    cat
    printf '</body></html>\n'
}

export LC_ALL=C # the pages are bytes from here on
for language in en de; do
    mkdir -p $language/images
    LC_ALL=C.UTF-8 convert_pages $language
    find "$here/$language/images" -name '*.png' -exec cp -t $language/images {} +
done
cp "$here/style.css" .
{ echo '<ul>'; contents en English; contents de Deutsch; echo '</ul>'; } | site_map >kelvane.hhc
{ echo '<ul>'; for language in en de; do index_words $language; done | sort; echo '</ul>'; } |
    site_map >kelvane.hhk

# No binary index: chmcmd leaves bytes of it unset.
write_project() {
    cat <<END
[OPTIONS]
Compatibility=1.1 or later
Compiled file=EAGLE_Kelvane.chm
Contents file=kelvane.hhc
Index file=kelvane.hhk
Binary Index=No
Default topic=en/start.html
Default Window=main
Title=Kelvane
Language=0x409 English
Full-text search=Yes

[WINDOWS]
main="Kelvane","kelvane.hhc","kelvane.hhk","en/start.html","en/start.html",,,,,0x23520,240,0x10387e,[60,40,1060,760],0xB0000,,,,,,0

END
    local aliases='' map='' files='' language page number
    for language in en de; do
        while read -r page; do
            [ -e "$language/$page.html" ] || fail "$language/$page.html is missing"
            number=$(context_number $language "$page") || exit 1
            aliases+="page_$number=$language/$page.html"$'\n'
            map+="#define page_$number $number"$'\n'
            files+="$language/$page.html"$'\n'
        done <"$here/contents.txt"
    done
    printf '[ALIAS]\n%s\n[MAP]\n%s\n[FILES]\n%sstyle.css\n' "$aliases" "$map" "$files"
    find en/images de/images -name '*.png' | sort
}
write_project >kelvane.hhp

# chmcmd writes the project's full path into the file; this one is the same everywhere.
if ! chmcmd --no-html-scan /proc/self/cwd/kelvane.hhp >log 2>&1 ||
    grep -qE '^(Error|Warning)|corrupt' log || [ ! -s EAGLE_Kelvane.chm ]; then
    cat log >&2
    fail "the help could not be compiled"
fi
chmls extract EAGLE_Kelvane.chm '/#IVB' ivb >log 2>&1 || { cat log >&2; fail "no context numbers"; }
perl "$here/finish_chm.pl" EAGLE_Kelvane.chm ivb /proc/self/cwd/
mv EAGLE_Kelvane.chm "$output"
chmod 644 "$output"
