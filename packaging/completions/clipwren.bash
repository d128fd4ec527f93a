# Completion of clipwren(1) for bash

_clipwren()
{
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    COMPREPLY=()
    if [ "$COMP_CWORD" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W "save --new-download --help --version" -- "$current")
    elif [ "${COMP_WORDS[1]}" != save ]; then
        return
    elif [ "$previous" = --format ]; then
        mapfile -t COMPREPLY < <(
            compgen -W "bestResolution macCompatible proRes422 audioMP3" -- "$current")
    elif [ "$previous" != --trim ] && [ "$previous" != --title ]; then
        mapfile -t COMPREPLY < <(compgen -W "--format --trim --title --help" -- "$current")
    fi
}

complete -F _clipwren clipwren
