#!/bin/bash
# wine32.sh: prints the folder of a private 32-bit Wine, and makes it first when it is not there.
#
# Debian's 32-bit Wine wants i386 as a second architecture of the whole system. Here its packages
# are only unpacked into the user's cache: no rights needed, nothing on the system changes.
set -euo pipefail
. "$(dirname "$(readlink -f "$0")")/made_once.sh"
made_once wine32 1 "set up the 32-bit Wine"
echo "kelvane: fetching a 32-bit Wine for the tests (once, about 140 MB)" >&2

# The system's own mirror, whatever it is; a machine whose package lists were dropped gets them.
main_archive() {
    apt-get indextargets --format '$(REPO_URI) $(CODENAME) $(LABEL) $(COMPONENT)' 'Created-By: Packages' |
        awk '$3 == "Debian" && $4 == "main" && $2 !~ /-/ { print $1, $2; exit }'
}
archive=$(main_archive)
if [ -z "$archive" ]; then
    if [ "$(id -u)" -eq 0 ]; then apt-get update >"$log" 2>&1; else sudo apt-get update >"$log" 2>&1; fi
    archive=$(main_archive)
fi
if [ -z "$archive" ]; then
    echo "kelvane: apt knows no Debian archive to fetch from" >&2
    exit 1
fi

mkdir -p "$work/apt/lists/partial" "$work/apt/archives/partial" "$work/root"
: >"$work/apt/status"
echo "deb [arch=i386] ${archive/ */} ${archive/* /} main" >"$work/apt/sources.list"
apt=(apt-get -q -y
    -o "Dir::State=$work/apt" -o "Dir::State::lists=$work/apt/lists"
    -o "Dir::State::status=$work/apt/status" -o "Dir::Cache=$work/apt"
    -o "Dir::Etc::sourcelist=$work/apt/sources.list" -o Dir::Etc::sourceparts=-
    -o APT::Architecture=i386 -o APT::Architectures=i386
    -o APT::Sandbox::User= -o Debug::NoLocking=1)
"${apt[@]}" update >"$log" 2>&1
"${apt[@]}" install --no-install-recommends --download-only wine32 fonts-wine >"$log" 2>&1
for package in "$work"/apt/archives/*.deb; do
    dpkg -x "$package" "$work/root"
done

# What the packages' installation scripts would have done: Wine takes zlib for its own only when
# the file says so.
zlib=$work/root/usr/i686-w64-mingw32/lib/zlib1.dll
{
    head -c 64 "$zlib"
    printf 'Wine builtin DLL'
    head -c 16 /dev/zero
    tail -c +97 "$zlib"
} >"$work/root/usr/lib/i386-linux-gnu/wine/i386-windows/zlib1.dll"

for program in wine wineserver32; do
    patchelf --set-interpreter "$root/lib/ld-linux.so.2" "$work/root/usr/lib/wine/$program" >"$log" 2>&1
done
rm -rf "$root"
mv "$work/root" "$root"
LD_LIBRARY_PATH=$root/lib/i386-linux-gnu:$root/usr/lib/i386-linux-gnu \
    timeout 60 "$root/usr/lib/wine/wine" --version >"$log" 2>&1
touch "$root/complete"
echo "$root"
