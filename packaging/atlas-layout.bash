# Completion of atlas-layout for bash.

_atlas_layout() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]}
    COMPREPLY=()
    compopt +o filenames 2>/dev/null
    if [ "$COMP_CWORD" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W 'show check diff explain distinct export import merge prepare key --help --version' -- "$word")
        return
    fi
    case $before in
        --host | --column | --columns | --quantities) return ;;
        --against)
            mapfile -t COMPREPLY < <(compgen -W 'white black' -- "$word")
            return
            ;;
    esac
    local options=
    case $command in
        explain) options='--host --column' ;;
        distinct) options='--host --columns --quantities --against' ;;
        export | import) options=--json ;;
        merge) options='--output --ours --theirs' ;;
        prepare | key) return ;;
    esac
    if [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
    else
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
    fi
}
complete -F _atlas_layout atlas-layout
