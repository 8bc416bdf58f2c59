# bash completion for Veskora_batch: its options are asked of itself, models are *.vsk.
_Veskora_batch() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} IFS=$'\n' i
    for ((i = 1; i < COMP_CWORD; ++i)); do
        [[ ${COMP_WORDS[i]} != -- ]] || before=--
    done
    # The equals sign is a word of its own.
    if [[ $word == = ]]; then
        before=$word word=
    fi
    case $before in
        --out) COMPREPLY=($(compgen -d -- "$word")) ;;
        --summary) COMPREPLY=($(compgen -f -- "$word")) ;;
        --paper) COMPREPLY=($(compgen -W $'A4\nLetter' -- "$word")) ;;
        --title | --author | --size | --label-scale | --steps-elements | --steps-digits)
            COMPREPLY=()
            return
            ;;
        =) # of --pictures: kinds in a list with commas
            local done=
            [[ $word != *,* ]] || done=${word%,*},
            COMPREPLY=($(compgen -P "$done" -W $'png\nsvg\npdf' -- "${word##*,}"))
            compopt -o nospace
            return
            ;;
        *)
            if [[ $word == -* && $before != -- ]]; then
                COMPREPLY=($(compgen -W "$("$1" --help 2>/dev/null |
                    grep -oE '(^  |, )--[a-z][a-z-]*=?' | tr -d ' ,' | sort -u)" -- "$word"))
                [[ ${COMPREPLY[*]} != *= ]] || compopt -o nospace
                return
            fi
            COMPREPLY=($(compgen -f -X '!*.vsk' -- "$word") $(compgen -d -- "$word"))
            ;;
    esac
    compopt -o filenames
} && complete -F _Veskora_batch Veskora_batch
