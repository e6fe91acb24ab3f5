# Completion for grdx: asks the program itself what it takes at this place.
_grdx() {
    local current=${COMP_WORDS[COMP_CWORD]} word help
    local -a calls=()
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        case $word in
            -*) break ;;
            new | import | list | draw | info | plot | script | project | samples | layers | hydrometer) calls+=("$word") ;;
        esac
    done
    help=$(LC_ALL=C "${COMP_WORDS[0]}" "${calls[@]}" --help 2>/dev/null) || return
    if [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(grep -oE -- '(^|[ ,])--?[a-z][a-z-]*' <<<"$help" | tr -d ' ,')" -- "$current")
    else
        mapfile -t COMPREPLY < <(compgen -W "$(sed -n '/^Subcommands:/,/^$/s/^  \([a-z][a-z-]*\) .*/\1/p' <<<"$help")" -- "$current")
        [ ${#COMPREPLY[@]} -gt 0 ] || compopt -o default
    fi
}
complete -F _grdx grdx
