# Completion of korvell-host for bash; zsh takes it through bashcompinit.

# The words up to the cursor, put together again where the shell has broken them at = and :
_korvell_host_words()
{
    local word last glue=no i
    line_words=()
    for ((i = 0; i <= COMP_CWORD; ++i)); do
        word=${COMP_WORDS[i]}
        if [[ ${#line_words[@]} -gt 1 && ( $glue == yes || $word == [=:]* ) ]]; then
            last=$((${#line_words[@]} - 1))
            line_words[last]+=$word
        else
            line_words+=("$word")
        fi
        glue=no
        [[ $word == *[=:] ]] && glue=yes
    done
}

# The set-up file among the words.
_korvell_host_setup()
{
    local i word
    for ((i = 1; i < ${#line_words[@]} - 1; ++i)); do
        word=${line_words[i]//\\/}
        word=${word/#\~/$HOME}
        case $word in
            --save | --sheet | --record | --compare | --paper | --get | --set | --choices | --language | --picture | --capture | \
                --locale | --module-folder | --check-module | --new | --add | --name | --remove | --rename | --enable | --disable) ((++i)) ;;
            -*) ;;
            *) [[ -f $word ]] && printf '%s\n' "$word" && return ;;
        esac
    done
    return 1
}

# Offers the lines of standard input that begin as the word does, quoted as the shell wants them.
_korvell_host_offer()
{
    local whole=${line_words[${#line_words[@]} - 1]} typed=${COMP_WORDS[COMP_CWORD]} line quoted kept
    whole=${whole//\\/}
    typed=${typed//\\/}
    [[ $typed == [=:] ]] && typed=
    # What the shell does not replace.
    kept=$((${#whole} - ${#typed}))
    while IFS= read -r line; do
        if [[ $line == "$whole"* ]]; then
            printf -v quoted %q "${line:$kept}"
            COMPREPLY+=("${quoted//\\=/=}")
        fi
    done
}

_korvell_host_settings()
{
    local setup
    setup=$(_korvell_host_setup) && "$program" "$setup" "$@" 2>/dev/null
}

_korvell_host_assignments()
{
    local whole=${line_words[${#line_words[@]} - 1]//\\/} name
    if [[ $whole == *=* ]]; then
        name=${whole%%=*}
        _korvell_host_offer < <(_korvell_host_settings --choices "$name" | while IFS= read -r choice; do
            printf '%s=%s\n' "$name" "$choice"
        done)
    else
        compopt -o nospace 2>/dev/null
        _korvell_host_offer < <(_korvell_host_settings --list --settable --names | while IFS= read -r name; do
            printf '%s=\n' "$name"
        done)
    fi
}

_korvell_host_languages()
{
    local file folder
    folder=$(dirname "$(readlink -f "$(command -v "$program")")")/../share/KoTimebaseEditor/strings
    for file in "$folder"/*.txt; do
        [[ -f $file ]] && basename "$file" .txt
    done
    compgen -f -X '!*.txt' -- "$1"
}

_korvell_host_files()
{
    compgen -d -- "$1"
    compgen -f -X '!*.json' -- "$1"
    compgen -f -X '!*.scenario' -- "$1"
    compgen -f -X '!*.h5' -- "$1"
}

_korvell_host()
{
    local line_words=() program=${COMP_WORDS[0]} current previous
    COMPREPLY=()
    _korvell_host_words
    current=${line_words[${#line_words[@]} - 1]}
    previous=${line_words[${#line_words[@]} - 2]}
    case $previous in
        --set) _korvell_host_assignments ;;
        --get) _korvell_host_offer < <(_korvell_host_settings --list --names) ;;
        --choices) _korvell_host_offer < <(_korvell_host_settings --list --settable --names) ;;
        --language) _korvell_host_offer < <(_korvell_host_languages "$current") ;;
        --locale) _korvell_host_offer <<<system ;;
        --new) _korvell_host_offer <<<$'empty\nvibration\nengine-bench\ntemperature-logging\nmixed' ;;
        --add) _korvell_host_offer <<<$'digitizer\nsignal-analyzer\ncounter\nthermocouple-scanner\ndata-logger' ;;
        --paper) _korvell_host_offer <<<$'A4\nLetter' ;;
        --module-folder) _korvell_host_offer < <(compgen -d -- "$current") ;;
        --check-module) _korvell_host_offer < <(compgen -d -- "$current"; compgen -f -X '!*.so' -- "$current") ;;
        *)
            if [[ $current == -* ]]; then
                _korvell_host_offer < <("$program" --help 2>/dev/null | grep -o -e '--[a-z][a-z-]*' | sort -u)
            else
                compopt -o filenames 2>/dev/null
                _korvell_host_offer < <(_korvell_host_files "${current//\\/}")
            fi
            ;;
    esac
}

complete -F _korvell_host korvell-host
