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

# The points of the list's newest section, one a line.
newest_changes() {
    awk '/^## / { sections++ } sections != 1 || !NF || /^## / { next }
        sub(/^- /, "") { if (point) print point; point = $0; next }
        { sub(/^ +/, ""); point = point " " $0 }
        END { print point }' CHANGELOG.md
}

# The licence and the changes in the forms that Debian's tools read.
add_documents() {
    {
        printf '%s\n' 'Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/' \
            'Upstream-Name: Kelvane' '' 'Files: *'
        sed -n 's/^Copyright (c) /Copyright: /p' LICENSE
        echo 'License: Expat'
        sed '1,/^Copyright/d; /./,$!d' LICENSE | sed -e '1{/^$/d}' -e 's/^$/./' -e 's/^/ /'
    } >"$doc/copyright"
    {
        printf '%s (%s) bookworm; urgency=medium\n\n' "$package" "$version"
        newest_changes | while IFS= read -r point; do
            fold -s -w 74 <<<"$point" | sed -e '1s/^/  * /' -e '1!s/^/    /' -e 's/ *$//'
        done
        printf '\n -- %s  %s\n' "$maintainer" "$(date -R -d "@$SOURCE_DATE_EPOCH")"
    } | gzip -n -9 >"$doc/changelog.gz"
}

dependencies() {
    mkdir -p "$work/debian"
    printf 'Source: %s\n\nPackage: %s\nArchitecture: any\n' "$package" "$package" >"$work/debian/control"
    (cd "$work" && dpkg-shlibdeps -O root/usr/bin/kelvane-cli) | sed -n 's/^shlibs:Depends=//p'
}

add_program
add_documents
even_out "$root"
(cd "$root" && find usr -type f -print0 | sort -z | xargs -0 md5sum) >"$root/DEBIAN/md5sums"
size=$(find "$root/usr" -type f -printf '%s\n' | awk '{ sum += int(($1 + 1023) / 1024) } END { print sum }')
depends=$(dependencies)
cat >"$root/DEBIAN/control" <<END
Package: $package
Version: $version
Architecture: $architecture
Maintainer: $maintainer
Installed-Size: $size
Depends: $depends
Section: electronics
Priority: optional
Description: pictures to EAGLE scripts
 Opens a picture, improves it with filters and colour operations, reduces it to
 black and white and writes an EAGLE script (.scr) that draws exactly the dark
 pixels, as polygons, wires or rectangles, on a layer of a circuit board.
END
even_out "$root/DEBIAN"
dpkg-deb --root-owner-group -Zxz --threads-max=1 --build "$root" \
    "$packages/${package}_${version}_$architecture.deb" >/dev/null
