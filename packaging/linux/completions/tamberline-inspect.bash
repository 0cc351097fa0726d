# shellcheck shell=bash
_tamberline_inspect() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  case $previous in
    --reports) mapfile -t COMPREPLY < <(compgen -d -- "$current") ;;
    --language) mapfile -t COMPREPLY < <(compgen -W "en de fr it es" -- "$current") ;;
    *)
      mapfile -t COMPREPLY < <(compgen -W \
        "--reports --json --watch --language --help -h --version -V" -- "$current")
      ;;
  esac
}
complete -o filenames -F _tamberline_inspect tamberline-inspect
