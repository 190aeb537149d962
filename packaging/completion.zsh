#compdef korvell-host
# Completion of korvell-host for zsh, by that for bash.
autoload -U +X bashcompinit && bashcompinit
source ${${(%):-%x}:A:h}/../../bash-completion/completions/korvell-host
complete -o nospace -F _korvell_host korvell-host
_bash_complete -o nospace -F _korvell_host
