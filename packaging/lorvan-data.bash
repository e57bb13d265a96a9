# Completion of lorvan-data for bash.

_lorvan_data() {
    local cur prev words cword
    _init_completion || return

    local command=${words[1]} options= given
    case $cword:$command in
    1:*)
        COMPREPLY=($(compgen -W 'check create demo export import import-csv backup restore path --help' -- "$cur"))
        return
        ;;
    *:check) options='--repair --accept --code' ;;
    *:create) options='--user' ;;
    *:demo) options='--seed --users' ;;
    *:export) options='--passwords' ;;
    *:import) options='--salvage' ;;
    *:import-csv) options='--closed-days --again' ;;
    *:restore) options='--replace' ;;
    *:backup | *:path) ;;
    *) return ;;
    esac

    case $prev in
    --code | --user | --seed) return ;;
    esac
    if [[ $cur == -* ]]; then
        options=" $options --help "
        for given in "${words[@]:2:cword-2}"; do
            options=${options/ "$given" / }
        done
        COMPREPLY=($(compgen -W "$options" -- "$cur"))
        return
    fi

    # A backup is a file, as the first word of restore and the second of backup; all other words are folders.
    local word place=0
    for ((word = 2; word < cword; ++word)); do
        [[ ${words[word]} == -* ]] || ((++place))
    done
    case $command:$place in
    restore:0 | backup:1) _filedir tar ;;
    *) _filedir -d ;;
    esac
} &&
    complete -F _lorvan_data lorvan-data
