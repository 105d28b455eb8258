# Completion of kelvane-cli for bash. What there is to choose from, the program itself is asked.

# The long options in a help text.
_kelvane_cli_options() { sed -nE 's/^ +(-[a-z],)?(--[a-z-]+).*/\2/p'; }

# _kelvane_cli_values OPTION: in a help text, the values to choose from, or * for any value.
_kelvane_cli_values() {
    sed -nE -e "s/^ +(-[a-z],)?$1 [A-Z]+:\{([^}]*)\}.*/\2/p" -e "s/^ +(-[a-z],)?$1 [A-Z].*/*/p" | tr , ' '
}

_kelvane_cli_commands() { sed -nE '/^Subcommands:/,/^$/s/^  ([a-z]+) .*/\1/p'; }

# Names as they are typed: "bw:" when an operation wants arguments.
_kelvane_cli_operations() { sed -nE 's/^([a-z-]+)(:?).*/\1\2/p'; }

_kelvane_cli() {
    local program=$1 word=$2 before=$3 command= help values= words=
    [ "$COMP_CWORD" -eq 1 ] || command=${COMP_WORDS[1]}
    help=$("$program" $command --help 2>/dev/null) || return
    case $before in
        -o | --output) ;;
        --*) values=$(_kelvane_cli_values "$before" <<<"$help") ;;
    esac
    if [ "$before" = --op ]; then
        words=$("$program" ops | _kelvane_cli_operations)
    elif [ -n "$values" ]; then
        words=${values%%\**}
        [ -n "$words" ] || return
    elif [[ $word == -* ]]; then
        words=$(_kelvane_cli_options <<<"$help")
    elif [ -z "$command" ]; then
        words=$(_kelvane_cli_commands <<<"$help")
    elif [[ $command == apply && $COMP_CWORD -gt 2 && ! $before =~ ^(-o|--output|:)$ ]]; then
        words=$("$program" ops | _kelvane_cli_operations)
    fi
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
    if [ ${#COMPREPLY[@]} -eq 0 ]; then
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
    fi
    [[ ${#COMPREPLY[@]} -ne 1 || ${COMPREPLY[0]} != *: ]] || compopt -o nospace 2>/dev/null
}
complete -F _kelvane_cli kelvane-cli
