# bash completion for kivodt: its commands, its options and the values some take, and the names of the
# formats and informats, asked of `kivodt list` (the kivodt being completed) when they are wanted.

# The names of one kind ("format" or "informat") that kivodt lists, without the plain w.d layout.
_kivodt_names() {
    "${COMP_WORDS[0]}" list 2>/dev/null | awk -v kind="$1" '$1 == kind && $2 != "w.d" { print $2 }'
}

_kivodt() {
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]}
    local commands="format informat convert guess list help"
    local options="-h --help --version --hex --hex-in --hex-out --datestyle --yearcutoff --missing-char --today
        --keep --threads --csv --no-header --delimiter --keep-blanks --markdown"
    local taking="--datestyle|--yearcutoff|--missing-char|--today|--threads|--csv|--delimiter"
    COMPREPLY=()
    case $prev in
        --datestyle) COMPREPLY=($(compgen -W "dmy dym mdy myd ydm ymd locale" -- "$cur")); return ;;
        --delimiter) COMPREPLY=($(compgen -W "tab , ; |" -- "$cur")); return ;;
        --yearcutoff | --missing-char | --today | --threads | --csv) return ;;
    esac
    # The command word and the words after it that are not options: the specs given so far.
    local i word command="" specs=0
    for ((i = 1; i < COMP_CWORD; i++)); do
        word=${COMP_WORDS[i]}
        if [[ $word == @($taking) ]]; then
            ((i++))
        elif [[ $word != -* ]]; then
            if [[ -z $command ]]; then command=$word; else ((specs++)); fi
        fi
    done
    if [[ $cur == -* ]]; then
        COMPREPLY=($(compgen -W "$options" -- "$cur"))
        return
    fi
    local kind=""
    case $command:$specs in
        :0 | help:0) COMPREPLY=($(compgen -W "$commands" -- "$cur")); return ;;
        format:0 | convert:1) kind=format ;;
        informat:0 | convert:0) kind=informat ;;
        *) return ;;
    esac
    COMPREPLY=($(compgen -W "$(_kivodt_names "$kind")" -- "${cur^^}"))
}

complete -F _kivodt kivodt
