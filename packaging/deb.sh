#!/bin/bash
# deb.sh WORK PACKAGES: the Debian package of kelvane-cli, for the system that builds it.
cd "$(dirname "$(readlink -f "$0")")/.."
. packaging/common.sh
work=$1/deb packages=$2 package=kelvane-cli
architecture=$(dpkg --print-architecture)
root=$work/root
doc=$root/usr/share/doc/$package
mkdir -p "$root/DEBIAN" "$doc"

# The manual's list of operations is the program's own.
manual() {
    build/native/src/cli/kelvane-cli ops | sed -E 's/-/\\-/g; s/^([^ ]+) +(.*)/.TP\n.B \1\n\2/' >"$work/operations"
    sed -e "s/@VERSION@/$version/" -e "s/@DATE@/$(date -d "@$SOURCE_DATE_EPOCH" +%F)/" \
        -e "/@OPERATIONS@/{r $work/operations" -e 'd}' packaging/kelvane-cli.1.in
}

add_program() {
    mkdir -p "$root/usr/bin"
    strip -o "$root/usr/bin/kelvane-cli" --remove-section=.comment --remove-section=.note \
        build/native/src/cli/kelvane-cli
    local share=$root/usr/share
    mkdir -p "$share/man/man1" "$share/bash-completion/completions"
    manual | gzip -n -9 >"$share/man/man1/kelvane-cli.1.gz"
    cp packaging/completion.bash "$share/bash-completion/completions/kelvane-cli"
}

# The points on the command line in the list's newest section, one a line.
newest_changes() {
    awk '/^## / { sections++ } /^##/ { ours = $0 == "### Command line" } sections != 1 || !ours || /^#/ || !NF { next }
        sub(/^- /, "") { if (point) print point; point = $0; next }
        { sub(/^ +/, ""); point = point " " $0 }
        END { print point }' CHANGELOG.md
}

changelog() {
    printf '%s (%s) bookworm; urgency=medium\n\n' "$package" "$version"
    newest_changes | while IFS= read -r point; do
        fold -s -w 74 <<<"$point" | sed -e '1s/^/  * /' -e '1!s/^/    /' -e 's/ *$//'
    done
    printf '\n -- %s  %s\n' "$maintainer" "$(date -R -d "@$SOURCE_DATE_EPOCH")"
}

# licence_text FILE: what follows its first empty line, as a field of several lines.
licence_text() { sed '0,/^$/d' "$1" | sed -e 's/^$/./' -e 's/^/ /'; }

# What is compiled into the program besides Kelvane itself.
third_party() { # file
    local name
    name=$(sed -n 's/^Name: //p' "$1")
    printf '\nFiles: %s/*\n' "$name"
    grep '^Copyright: ' "$1"
    grep '^License: ' "$1"
    licence_text "$1"
    sed -n 's/^Part: /Comment: Compiled into this package: /p' "$1"
}

copyright() {
    printf '%s\n' 'Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/' \
        'Upstream-Name: Kelvane' '' 'Files: *'
    sed -n 's/^Copyright (c) /Copyright: /p' LICENSE
    echo 'License: Expat'
    sed '1,/^Copyright/d' LICENSE | licence_text /dev/stdin
    third_party packaging/third-party/cli11.txt
    third_party packaging/third-party/gcc.txt
}

# What dpkg's own tools make of the source's description, with dependencies and size.
control() {
    mkdir -p "$work/debian"
    changelog >"$work/debian/changelog"
    cat >"$work/debian/control" <<END
Source: $package
Maintainer: $maintainer
Section: electronics
Priority: optional

Package: $package
Architecture: any
Depends: \${shlibs:Depends}
Description: pictures to EAGLE scripts
 Opens a picture, improves it with filters and colour operations, reduces it to
 black and white and writes an EAGLE script (.scr) that draws exactly the dark
 pixels, as polygons, wires or rectangles, on a layer of a circuit board.
END
    (cd "$work" && dpkg-shlibdeps root/usr/bin/kelvane-cli && dpkg-gencontrol "-p$package" -Proot -O)
}

add_program
changelog | gzip -n -9 >"$doc/changelog.gz"
copyright >"$doc/copyright"
even_out "$root"
(cd "$root" && find usr -type f -print0 | sort -z | xargs -0 md5sum) >"$work/md5sums"
control >"$work/control"
mv "$work/md5sums" "$work/control" "$root/DEBIAN"
even_out "$root/DEBIAN"
dpkg-deb --root-owner-group -Zxz --threads-max=1 --build "$root" \
    "$packages/${package}_${version}_$architecture.deb" >/dev/null
