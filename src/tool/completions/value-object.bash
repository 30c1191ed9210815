# Completion for bash: value-object itself says what may stand next.

_value_object() {
    # Bash takes "=" and ":" for words of their own; "temp=degC:K" is one.
    local words=() piece joins='' k
    for ((k = 1; k <= COMP_CWORD; ++k)); do
        piece=${COMP_WORDS[k]}
        if [[ ${#words[@]} -gt 0 && ( $joins || $piece == [=:]* ) ]]; then
            words[-1]+=$piece
        else
            words+=("$piece")
        fi
        [[ $piece == [=:] ]] && joins=yes || joins=''
    done

    # What stands before the last of these signs stays, but for quoted words, which are replaced whole.
    local current=${words[-1]} head=''
    [[ $current == [\'\"]* ]] || head=${current%"${current##*[=:]}"}

    words=("${words[@]#[\'\"]}")
    words=("${words[@]%[\'\"]}")
    local candidate meaning
    while IFS=$'\t' read -r candidate meaning; do
        candidate=${candidate#"$head"}
        [[ $current == [\'\"]* ]] || candidate=${candidate// /\\ }
        COMPREPLY+=("$candidate")
        [[ $candidate == *: ]] && compopt -o nospace
    done < <(value-object complete "${words[@]}" 2> /dev/null)
}

complete -o default -F _value_object value-object
