# Completion of drawload for bash.
_drawload() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command="" i
  for ((i = 1; i < COMP_CWORD; ++i)); do
    case ${COMP_WORDS[i]} in
    info | convert | view | batch)
      command=${COMP_WORDS[i]}
      break
      ;;
    esac
  done
  local options=""
  case $command in
  "") options="info convert view batch --help --version --verbose" ;;
  info) options="--json --verbose --help" ;;
  convert) options="--output --force --dpi --width --verbose --help" ;;
  view) options="--verbose --help" ;;
  batch) options="--out --to --jobs --timeout --resume --force --verbose --help" ;;
  esac
  case $before in
  --to)
    mapfile -t COMPREPLY < <(compgen -W "svg png html json" -- "$word")
    return
    ;;
  --dpi | --width | --jobs | --timeout) return ;;
  esac
  if [[ $word == -* || -z $command ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
  else
    compopt -o filenames
    mapfile -t COMPREPLY < <(compgen -f -- "$word")
  fi
}
complete -F _drawload drawload
