#!/bin/bash
# files.sh PROGRAM: kelvane-cli and what a Linux file system has besides plain files: links, streams,
# rights, full disks.
set -euo pipefail # which sees no failure before &&
samples=$(readlink -f "$(dirname "$(readlink -f "$0")")/../../samples")
work=$(mktemp -d)
trap 'chmod -R u+w "$work"; rm -rf "$work"' EXIT
trap 'echo "line $LINENO: $BASH_COMMAND" >&2' ERR
cd "$work"
cp "$1" program
cp "$samples/logo.png" in.png
./program export in.png -o expected.scr
fail() { echo "$*" >&2; exit 1; }
# status CODE COMMAND...: the command ends so.
status() {
    local code=0
    "${@:2}" 2>error || code=$?
    [ $code -eq "$1" ] || fail "${*:2}: $code instead of $1: $(<error)"
}
same() { cmp expected.scr "$1"; }

# Streams: what a redirection appends to stays.
for output in - /dev/stdout /dev/fd/1 /proc/self/fd/1; do
    echo before >log
    ./program export in.png -o $output --stats >>log 2>error
    same <(tail -n +2 log); [ "$(head -n 1 log)" = before ]; grep -q '^{"width": 640' error
done
same <(./program export - <in.png)
same <(./program export <(cat in.png))
mkfifo pipe
cat pipe >log &
./program export in.png -o pipe; wait $!; same log
status 1 ./program export in.png -o /dev/full
grep -q 'No space left on device' error

# Links: the file behind is written, and never that of an input.
ln -s in.png in.scr; ln -s new.scr dangling.scr
status 2 ./program export in.png
status 2 ./program export - -o in.png <in.png
status 2 ./program export in.png -o - >>in.png
cmp in.png "$samples/logo.png"
./program export in.png -o dangling.scr; same new.scr; [ -L dangling.scr ]

# Names of up to 255 bytes.
for length in 236 251; do
    long=$(printf "%${length}s.scr" | tr ' ' x)
    ./program export in.png -o "$long"; same "$long"
done

# Owner, group and permissions stay; a new file has those of any new file.
echo old >old.scr; chmod 604 old.scr
[ "$(id -u)" -ne 0 ] || chown 1:2 old.scr
before=$(stat -c '%u %g %a' old.scr)
./program export in.png -o old.scr; same old.scr; [ "$(stat -c '%u %g %a' old.scr)" = "$before" ]
(umask 027; ./program export in.png -o fresh.scr); [ "$(stat -c %a fresh.scr)" = 640 ]

# Where the folder takes no new files, the old one is written in place if it may be written at all.
user=()
[ "$(id -u)" -ne 0 ] || user=(setpriv --reuid=65534 --regid=65534 --clear-groups)
mkdir closed; head -c 50000 /dev/zero | tee closed/open.scr >closed/kept.scr
chmod 666 closed/open.scr; chmod 444 closed/kept.scr; chmod 555 closed; chmod 755 .
before=$(stat -c %i closed/open.scr)
"${user[@]}" ./program export in.png -o closed/open.scr
same closed/open.scr; [ "$(stat -c %i closed/open.scr)" = "$before" ]
for name in kept new; do status 1 "${user[@]}" ./program export in.png -o closed/$name.scr; done
grep -q 'closed/new.scr: Permission denied' error; [ "$(stat -c %s closed/kept.scr)" = 50000 ]

# A disk that is full in mid-write, noticed or fatal.
ulimit -c 0
echo before >old.scr
(trap '' XFSZ; ulimit -f 8; status 1 ./program export in.png -o old.scr)
(ulimit -f 8; status 153 ./program export in.png -o old.scr)
[ "$(<old.scr)" = before ]; [ -z "$(find . -name '*.tmp')" ]
