# Completion of vxctl for bash: the tool itself knows what may follow.
_vxctl() {
    local word words
    read -ra words <<<"${COMP_LINE:0:COMP_POINT}"
    [[ ${COMP_LINE:0:COMP_POINT} == *[[:space:]] ]] && words+=("")
    COMPREPLY=()
    while read -r word _; do
        if [[ $word == :file ]]; then
            compopt -o filenames
            mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -f -- "${COMP_WORDS[COMP_CWORD]}")
        else
            COMPREPLY+=("$word")
        fi
    done < <("${words[0]}" --complete "${words[@]:1}" 2>/dev/null)
}
complete -F _vxctl vxctl
