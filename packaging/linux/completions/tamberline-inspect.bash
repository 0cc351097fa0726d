# shellcheck shell=bash
_tamberline_inspect() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  local word command='' options='--reports --language --help -h --version -V'
  for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    case $word in save | compare | expect | record | metrics) command=$word ;; esac
  done
  case $command in
    save) options+=' --anonymise' ;;
    record) options+=' --anonymise --max-size' ;;
    compare) options+=' --json' ;;
    expect) options+=' --json --write --tap' ;;
    metrics) options+=' --output' ;;
    *) options+=' --json --watch save compare expect record metrics' ;;
  esac
  case $previous in
    --reports) mapfile -t COMPREPLY < <(compgen -d -- "$current") ;;
    --output) mapfile -t COMPREPLY < <(compgen -f -- "$current") ;;
    --max-size) COMPREPLY=() ;;
    --language) mapfile -t COMPREPLY < <(compgen -W "en de fr it es" -- "$current") ;;
    *)
      mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
      if [[ -n $command && $command != metrics && $current != -* ]]; then
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
      fi
      ;;
  esac
}
complete -o filenames -F _tamberline_inspect tamberline-inspect
