# Sourced by scripts that print the folder of something large in the user's cache, and make it there
# on first use.
#
# made_once NAME VERSION WHAT: sets $root, the folder. When it is complete, prints it and ends the
# script. Otherwise sets $work, a folder to make it in, which goes when the script ends, and $log,
# whose end is shown when the script fails; WHAT says what could not be made. Two runs never make it
# together: the lock is file descriptor 9.
made_once() {
    local cache=${XDG_CACHE_HOME:-${HOME:?}/.cache}/kelvane
    root=$cache/$1-$2
    made_once_what=$3
    mkdir -p "$cache"
    exec 9>"$cache/$1.lock"
    flock 9
    if [ -e "$root/complete" ]; then
        echo "$root"
        exit 0
    fi
    work=$(mktemp -d "$cache/$1.XXXXXX")
    log=$work/log
    trap made_once_finish EXIT
}

made_once_finish() {
    local status=$?
    if [ $status -ne 0 ]; then
        [ ! -s "$log" ] || tail -n 15 "$log" >&2
        echo "kelvane: could not $made_once_what" >&2
    fi
    rm -rf "$work"
}
