# Completion of kelvane-cli for bash. What there is to choose from, the program itself is asked.

# The long options in a help text.
_kelvane_cli_options() { sed -nE 's/^ +(-[a-z],)?(--[a-z-]+).*/\2/p'; }

# _kelvane_cli_values OPTION: in a help text, the values to choose from, or * for any value.
_kelvane_cli_values() {
    sed -nE -e "s/^ +(-[a-z],)?$1 [A-Z]+:\{([^}]*)\}.*/\2/p" -e "s/^ +(-[a-z],)?$1 [A-Z].*/*/p" | tr , ' '
}

# The names of layers at the end of a help text, "Layers: 1 Top, 2 Route2 ...".
_kelvane_cli_layers() { sed -n '/^Layers:/,$p' | grep -oE '[A-Za-z][A-Za-z0-9]*(,|$)' | tr -d ,; }

_kelvane_cli_commands() { sed -nE '/^Subcommands:/,/^$/s/^  ([a-z]+) .*/\1/p'; }

# Names as they are typed: "bw:" when an operation wants arguments.
_kelvane_cli_operations() { sed -nE 's/^([a-z-]+)(:?).*/\1\2/p'; }

# _kelvane_cli_before_operation: whether the word in question stands before the operations of
# "apply", where INPUT is: no other word but options and their values has come yet. Reads $help.
_kelvane_cli_before_operation() {
    local i
    for ((i = 2; i < COMP_CWORD; ++i)); do
        case ${COMP_WORDS[i]} in
            -o | --output) ;;
            -?*) [ -n "$(_kelvane_cli_values "${COMP_WORDS[i]}" <<<"$help")" ] || continue ;;
            *) return 1 ;;
        esac
        [ "${COMP_WORDS[i + 1]}" != = ] || ((++i)) # bash splits "--seed=5" in three
        ((++i))
    done
}

_kelvane_cli() {
    local program=$1 word=$2 before=$3 command= help= values= words= operation=
    [ "$COMP_CWORD" -eq 1 ] || command=${COMP_WORDS[1]}
    help=$("$program" $command --help 2>/dev/null) || return
    # So are "--unit=mm" and "palette:FILE"; the last part may still be missing.
    case $before in
        =) before=${COMP_WORDS[COMP_CWORD - 2]} ;;
        :) operation=${COMP_WORDS[COMP_CWORD - 2]} ;;
        *) [ "${COMP_WORDS[COMP_CWORD]}" != : ] || operation=$before ;;
    esac
    case $before in
        -o | --output) ;;
        --*) values=$(_kelvane_cli_values "$before" <<<"$help") ;;
    esac
    if [ -n "$operation" ]; then
        "$program" ops | grep -q "^$operation:FILE" || return
    elif [ "$before" = --op ]; then
        words=$("$program" ops | _kelvane_cli_operations)
    elif [ "$before" = --layer ]; then
        words=$(_kelvane_cli_layers <<<"$help")
    elif [ "$before" = --dpi ]; then
        words=file
    elif [ -n "$values" ]; then
        words=${values%%\**}
        [ -n "$words" ] || return
    elif [[ $word == -* ]]; then
        words=$(_kelvane_cli_options <<<"$help")
    elif [ -z "$command" ]; then
        words=$(_kelvane_cli_commands <<<"$help")
    elif [[ $command == apply && ! $before =~ ^(-o|--output)$ ]] && ! _kelvane_cli_before_operation; then
        words=$("$program" ops | _kelvane_cli_operations)
    fi
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
    if [ -z "$words" ]; then
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
    fi
    [[ ${#COMPREPLY[@]} -ne 1 || ${COMPREPLY[0]} != *: ]] || compopt -o nospace 2>/dev/null
}
complete -F _kelvane_cli kelvane-cli
