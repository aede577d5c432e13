# Completion of pstyle's command line in bash. It needs nothing but bash: source it, or let it be
# found in share/bash-completion/completions.
# shellcheck shell=bash

# Takes the quoting off a word as far as it has been typed.
_pstyle_plain()
{
    local word=$1 plain='' quote='' char i
    for ((i = 0; i < ${#word}; ++i)); do
        char=${word:i:1}
        if [[ $char == "$quote" ]]; then
            quote=
        elif [[ -z $quote && $char == [\'\"] ]]; then
            quote=$char
        elif [[ $char == \\ && $quote != \' ]]; then
            i=$((i + 1))
            plain+=${word:i:1}
        else
            plain+=$char
        fi
    done
    printf '%s' "$plain"
}

# Offers the folders, and the files with one of the given suffixes in any case.
_pstyle_files()
{
    local start=$1 name suffix
    shift
    mapfile -t COMPREPLY < <(compgen -d -- "$start")
    if (($# > 0)); then
        while IFS= read -r name; do
            for suffix; do
                [[ ${name,,} != *"$suffix" ]] || COMPREPLY+=("$name")
            done
        done < <(compgen -f -- "$start")
    fi
    # There is no completion to set options of when this is called by hand.
    compopt -o filenames 2>/dev/null || true
}

_pstyle_words()
{
    mapfile -t COMPREPLY < <(compgen -W "$2" -- "$1")
}

_pstyle()
{
    local current=${COMP_WORDS[COMP_CWORD]} command='' option='' only_names='' names=0 word i
    COMPREPLY=()

    for ((i = 1; i < COMP_CWORD; ++i)); do
        word=${COMP_WORDS[i]}
        if [[ -n $option ]]; then
            # Bash takes --option=value for three words.
            [[ $word == '=' ]] || option=
            continue
        fi
        case $only_names$word in
        --) only_names=yes ;;
        --size) option=$word ;;
        --source | --new | --folder | --export | --picture) command=$word option=$word ;;
        -?*) command=$word ;;
        *) names=$((names + 1)) ;;
        esac
    done
    [[ -z $option || $current != '=' ]] || current=
    current=$(_pstyle_plain "$current")

    case $option in
    --source | --export | --picture) _pstyle_files "$current" .ctb .stb ;;
    --new) _pstyle_words "$current" 'ctb stb' ;;
    --folder) _pstyle_files "$current" ;;
    --size) _pstyle_words "$current" '128 256 512 1024 2048 4096' ;;
    esac
    [[ -z $option ]] || return 0

    if [[ $current == -* && -z $only_names ]]; then
        case $command in
        '')
            ((names > 0)) || _pstyle_words "$current" \
                '--source --new --list --folder --export --picture --help --version'
            ;;
        --picture) _pstyle_words "$current" '--size' ;;
        esac
        return 0
    fi

    ((names == 0)) || return 0
    case $command in
    '' | --source) _pstyle_files "$current" .ctb .stb ;;
    --new) _pstyle_files "$current" ;;
    --export) _pstyle_files "$current" .csv ;;
    --picture) _pstyle_files "$current" .png ;;
    esac
}

complete -F _pstyle pstyle
