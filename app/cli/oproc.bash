# bash completion for oproc: commands, their options and option values, data
# files for FILE arguments and data groups (.dgr) where a group is named. The
# commands and options are read from the program's own --help, so they follow
# whatever the installed program offers.

# _oproc_help WORD...: the help of that command (none: the program's).
_oproc_help() {
    local prog=${COMP_WORDS[0]}
    [[ $prog == */* ]] || prog=$(type -P "$prog" 2>/dev/null) || prog=oproc
    "$prog" "$@" --help 2>/dev/null
}

# The subcommands a help lists, one a line.
_oproc_subcommands() {
    sed -n '/^Subcommands:/,/^$/s/^  \([a-z][^ ]*\)  .*/\1/p'
}

# The options a help lists, one a line: "NAME HINT", HINT empty for a flag.
_oproc_options() {
    awk '/^Options:/ { on = 1; next } /^$/ { on = 0 }
         on && /^  -/ { sub(/^  /, ""); sub(/  .*/, "")
                        n = split($1, names, ","); for (i = 1; i <= n; i++) print names[i], $2 }'
}

_oproc_files() {  # _oproc_files [PATTERN]
    compopt -o filenames 2>/dev/null
    if [[ -n ${1-} ]]; then
        COMPREPLY=($(compgen -d -- "$cur") $(compgen -f -X "!$1" -- "$cur"))
    else
        COMPREPLY=($(compgen -f -- "$cur"))
    fi
}

_oproc() {
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD-1]}
    local IFS=$'\n'
    local path=() help options subs positionals=0 i w hint
    help=$(_oproc_help)
    options=$(_oproc_options <<<"$help")
    local global=$options
    subs=$(_oproc_subcommands <<<"$help")
    # Walk the words before the cursor: descend into commands, skip option values.
    for ((i = 1; i < COMP_CWORD; i++)); do
        w=${COMP_WORDS[i]}
        if [[ $w == -* ]]; then
            hint=$(sed -n "s/^${w%%=*} //p" <<<"$options$IFS$global" | head -1)
            [[ -n $hint && $w != *=* ]] && ((i++))
        elif [[ -n $subs ]] && grep -qx -- "$w" <<<"$subs"; then
            path+=("$w")
            help=$(_oproc_help "${path[@]}")
            options=$(_oproc_options <<<"$help")
            subs=$(_oproc_subcommands <<<"$help")
            positionals=0
        else
            ((positionals++))
        fi
    done

    if [[ $prev == -* ]]; then
        hint=$(sed -n "s/^$prev //p" <<<"$options$IFS$global" | head -1)
        if [[ -n $hint ]]; then
            case $prev:$hint in
                --group:*) _oproc_files '*.dgr' ;;
                *:*'|'*) COMPREPLY=($(compgen -W "$(tr '|' '\n' <<<"${hint%%=*}")" -- "$cur")) ;;
                *:PATH* | *:FILE* | *:DIR*) _oproc_files ;;
                *) COMPREPLY=() ;;
            esac
            return
        fi
    fi
    if [[ $cur == -* ]]; then
        COMPREPLY=($(compgen -W "$(cut -d' ' -f1 <<<"$options$IFS$global" | sort -u)" -- "$cur"))
    elif [[ -n $subs ]]; then
        COMPREPLY=($(compgen -W "$subs" -- "$cur"))
    elif [[ ${path[0]-} == group && $positionals -eq 0 ]]; then
        _oproc_files '*.dgr'
    else
        _oproc_files
    fi
}
complete -F _oproc oproc
