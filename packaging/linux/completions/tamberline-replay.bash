# shellcheck shell=bash
_tamberline_replay() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  case $previous in
    --language) mapfile -t COMPREPLY < <(compgen -W "en de fr it es" -- "$current") ;;
    --theme) mapfile -t COMPREPLY < <(compgen -W "light dark" -- "$current") ;;
    --screenshot | --places) mapfile -t COMPREPLY < <(compgen -f -- "$current") ;;
    --font-scale | --search | --speed | --step) COMPREPLY=() ;;
    *)
      if [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "--language --theme --font-scale --expand-all --search
          --screenshot --places --enable-volumes --speed --step --help -h --version -V" -- "$current")
      else
        mapfile -t COMPREPLY < <(compgen -d -- "$current")
      fi
      ;;
  esac
}
complete -o filenames -F _tamberline_replay tamberline-replay
