#!/bin/bash
# files.sh PROGRAM: kelvane-cli and what a Linux file system has besides plain files: links, streams,
# rights, full disks.
set -euo pipefail # which sees no failure before &&
sample=$(readlink -f "$(dirname "$(readlink -f "$0")")/../../samples/logo.png")
work=$(mktemp -d)
trap 'chmod -R u+w "$work"; rm -rf "$work"' EXIT
trap 'echo "line $LINENO: $BASH_COMMAND" >&2' ERR
cd "$work"
cp "$1" program; cp "$sample" in.png
./program export in.png -o expected.scr
same() { cmp expected.scr "$1"; }
# status CODE COMMAND...: the command ends so.
status() {
    local code=0
    "${@:2}" 2>error || code=$?
    [ $code -eq "$1" ] || { cat error; echo "${*:2}: $code"; exit 1; } >&2
}

# Streams: what a redirection appends to stays.
for output in - /dev/stdout /dev/fd/1 /proc/self/fd/1; do
    echo before >log
    ./program export <(cat in.png) -o $output >>log
    cmp log <(echo before; cat expected.scr)
done
same <(./program export <(cat in.png))
status 1 ./program export in.png -o /dev/full; grep -q 'No space left on device' error

# Links: the file behind is written, and never that of an input. Names have up to 255 bytes.
ln -s in.png in.scr; status 2 ./program export in.png
status 2 ./program export - -o in.png <in.png
status 2 ./program export in.png -o - >>in.png
cmp in.png "$sample"
long=$(printf '%251s.scr' | tr ' ' x)
ln -s "$long" link.scr; ./program export in.png -o link.scr; [ -L link.scr ]; same "$long"

# Owner, group and permissions stay; a new file has those of any new file.
echo old >old.scr; chmod 604 old.scr
[ "$(id -u)" -ne 0 ] || chown 1:2 old.scr
before=$(stat -c '%u %g %a' old.scr)
./program export in.png -o old.scr
[ "$(stat -c '%u %g %a' old.scr)" = "$before" ]
(umask 027; ./program export in.png -o fresh.scr; [ "$(stat -c %a fresh.scr)" = 640 ])

# Where the folder takes no new files, the old one is written in place if it may be written at all.
user=()
[ "$(id -u)" -ne 0 ] || user=(setpriv --reuid=65534 --regid=65534 --clear-groups)
mkdir closed; mkdir -m 777 shared; head -c 50000 /dev/zero | tee closed/open.scr shared/kept.scr >zeros
chmod 666 closed/open.scr; chmod 444 shared/kept.scr; chmod 555 closed; chmod 755 .
"${user[@]}" ./program export in.png -o closed/open.scr; same closed/open.scr
status 1 "${user[@]}" ./program export in.png -o shared/kept.scr; cmp shared/kept.scr zeros

# A disk that is full in mid-write, noticed or fatal.
(trap '' XFSZ; ulimit -f 8; status 1 ./program export in.png -o old.scr)
(ulimit -c 0 -f 8; status 153 ./program export in.png -o old.scr)
same old.scr; [ -z "$(find . -name '*.tmp')" ]
