# Completion of drawload for bash.
_drawload() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command="" i
  for ((i = 1; i < COMP_CWORD; ++i)); do
    case ${COMP_WORDS[i]} in
    info | check | convert | view | batch)
      command=${COMP_WORDS[i]}
      break
      ;;
    esac
  done
  local options="" mend="--drop-duplicates --join --inside-first --simplify --tolerance"
  case $command in
  "") options="info check convert view batch --help --version --verbose" ;;
  info) options="--json --verbose --help" ;;
  check) options="--json --output --force --tolerance --bed --ignore --verbose --help" ;;
  convert) options="--output --force --dpi --width $mend --verbose --help" ;;
  view) options="$mend --verbose --help" ;;
  batch) options="--out --to --jobs --timeout --resume --force $mend --verbose --help" ;;
  esac
  case $before in
  --to)
    mapfile -t COMPREPLY < <(compgen -W "svg png html json" -- "$word")
    return
    ;;
  --ignore)
    mapfile -t COMPREPLY < <(compgen -W "duplicate overlap other-layer open pieces order short turn-back outside dpi settings far not-finite" -- "$word")
    return
    ;;
  --join | --simplify | --tolerance | --bed | --dpi | --width | --jobs | --timeout) return ;;
  esac
  if [[ $word == -* || -z $command ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
  else
    compopt -o filenames
    mapfile -t COMPREPLY < <(compgen -f -- "$word")
  fi
}
complete -F _drawload drawload
