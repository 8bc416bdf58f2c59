# bash completion for Veskora_batch: its options are asked of itself, models are *.vsk.
_Veskora_batch() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} IFS=$'\n' i
    # The equals sign is a word of its own.
    if [[ $word == = ]]; then
        before+='=' word=
    elif [[ $before == = ]]; then
        before=${COMP_WORDS[COMP_CWORD - 2]}=
    fi
    for ((i = 1; i < COMP_CWORD; ++i)); do
        [[ ${COMP_WORDS[i]} != -- ]] || before=--
    done
    case $before in
        --out) mapfile -t COMPREPLY < <(compgen -d -- "$word") ;;
        --summary) mapfile -t COMPREPLY < <(compgen -f -- "$word") ;;
        --paper) mapfile -t COMPREPLY < <(compgen -W $'A4\nLetter' -- "$word") ;;
        --pictures=) # kinds in a list with commas
            local done=
            [[ $word != *,* ]] || done=${word%,*},
            mapfile -t COMPREPLY < <(compgen -P "$done" -W $'png\nsvg\npdf' -- "${word##*,}")
            compopt -o nospace
            return
            ;;
        --title | --author | --jobs | --size | --label-scale | --steps-elements | --steps-digits | *=)
            COMPREPLY=()
            return
            ;;
        *)
            if [[ $word == -* && $before != -- ]]; then
                mapfile -t COMPREPLY < <(compgen -W "$("$1" --help 2>/dev/null |
                    grep -oE '(^  |, )--[a-z][a-z-]*=?' | tr -d ' ,' | sort -u)" -- "$word")
                [[ ${COMPREPLY[*]} != *= ]] || compopt -o nospace
                return
            fi
            mapfile -t COMPREPLY < <(compgen -f -X '!*.vsk' -- "$word"; compgen -d -- "$word")
            ;;
    esac
    compopt -o filenames
} && complete -F _Veskora_batch Veskora_batch
