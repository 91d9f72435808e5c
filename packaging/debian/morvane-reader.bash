# Completion of morvane-reader for bash: options, their choices, and files. It reads the options from
# --help, where "--view top|front" has choices, and a value follows its option after one blank.

_morvane_reader() {
  local word=$2 option=$3 help value
  COMPREPLY=()
  # "--view=iso" is three words.
  if [[ $word == = ]]; then
    word=
  elif [[ $option == = ]]; then
    option=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  help=$("$1" --help 2> /dev/null) || return
  if [[ $option =~ ^--[a-z-]+$ ]]; then
    value=$(sed -n "s/^  $option \([^ ][^ ]*\).*/\1/p" <<< "$help")
  fi
  case $value in
    *'|'*) mapfile -t COMPREPLY < <(compgen -W "${value//|/ }" -- "$word") ;;
    OUT) mapfile -t COMPREPLY < <(compgen -f -- "$word") ;;
    FILE)
      mapfile -t COMPREPLY < <(compgen -d -- "$word"; compgen -f -X '!*.[Bb][Mm][Pp]' -- "$word")
      ;;
    ?*) ;; # numbers
    *)
      if [[ $word == -* ]]; then
        help=$(sed -n 's/^  \(--[^ ]*\).*/\1/p' <<< "$help")
        mapfile -t COMPREPLY < <(compgen -W "$help" -- "$word")
      else
        mapfile -t COMPREPLY < <(compgen -d -- "$word"; compgen -f -X '!*.[Rr][Ee][Ss]' -- "$word")
      fi
      ;;
  esac
}

complete -o filenames -F _morvane_reader morvane-reader
