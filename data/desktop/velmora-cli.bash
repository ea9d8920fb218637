# Bash completion for velmora-cli: subcommands, then each one's options.
_velmora_cli() {
  local cur prev words cword
  _init_completion || return
  local commands="count options solve check play stats generate transform sort scheme print book export"
  if [[ $cword -eq 1 ]]; then
    COMPREPLY=($(compgen -W "$commands --help" -- "$cur"))
    return
  fi
  case $prev in
    --level) COMPREPLY=($(compgen -W "easy hard vhard random" -- "$cur")); return ;;
    --by) COMPREPLY=($(compgen -W "header size number blanks" -- "$cur")); return ;;
    --order) COMPREPLY=($(compgen -W "asc desc random" -- "$cur")); return ;;
    --paper) COMPREPLY=($(compgen -W "a4 letter" -- "$cur")); return ;;
    --what) COMPREPLY=($(compgen -W "puzzle solution both" -- "$cur")); return ;;
    --per-page) COMPREPLY=($(compgen -W "1 2 4 6" -- "$cur")); return ;;
    --answers) COMPREPLY=($(compgen -W "back none" -- "$cur")); return ;;
    --folder) _filedir -d; return ;;
    --pdf) _filedir pdf; return ;;
    --svg) _filedir svg; return ;;
    --png) _filedir png; return ;;
    --count|--title|--seed|--jobs|--renumber|--from|--to|--current|--background|--answers-per-page|--size) return ;;
  esac
  local options=""
  case ${words[1]} in
    play) options="--no --keep --folder" ;;
    stats) options="--folder" ;;
    generate) options="--count --level --title --seed --jobs" ;;
    transform) options="--level --seed" ;;
    sort) options="--by --order --renumber --seed" ;;
    scheme) options="--from --background --folder --no"
      if [[ $cword -eq 2 ]]; then
        COMPREPLY=($(compgen -W "list show add replace delete" -- "$cur"))
        return
      fi ;;
    print) options="--pdf --from --to --solutions --paper --current --what" ;;
    book) options="--pdf --from --to --per-page --answers --answers-per-page --title --paper" ;;
    export) options="--svg --png --solution --size" ;;
  esac
  if [[ $cur == -* ]]; then
    COMPREPLY=($(compgen -W "$options --help" -- "$cur"))
  else
    _filedir
  fi
}
complete -F _velmora_cli velmora-cli
