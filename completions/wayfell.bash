# Completion of wayfell's command line for bash.
# Installed as share/bash-completion/completions/wayfell; or: source completions/wayfell.bash

# Names of datums hold blanks, brackets and apostrophes. That they are "filenames" has bash quote
# them as the command line needs it.
_wayfell_datums() {
  local typed=${1//\\/} name
  typed=${typed#[\"\']}
  compopt -o filenames 2>/dev/null
  while IFS= read -r name; do
    [[ ${name,,} == "${typed,,}"* ]] && COMPREPLY+=("$name")
  done < <("${COMP_WORDS[0]}" datums --names 2>/dev/null)
}

_wayfell_files() {
  compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(compgen -f -- "$1")
}

_wayfell_words() {
  mapfile -t COMPREPLY < <(compgen -W "$2" -- "$1")
}

_wayfell() {
  local current=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]} command='' word
  COMPREPLY=()
  # In --option=value the sign is a word of its own.
  if [[ $current == = ]]; then
    current=''
  elif [[ $option == = ]]; then
    option=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    [[ $word == -* ]] && continue
    command=$word
    break
  done

  local options='--help --version'
  case $command in
    '')
      _wayfell_words "$current" "today replay convert distance datums $options"
      return
      ;;
    today) options+=' --demo --replay --rate --suite --local' ;;
    replay) options+=' --demo --suite --local --every --text' ;;
    convert) options+=' --to --from --datum --utm-type --json' ;;
    distance) options+=' --bearing --distance --units --mils --json' ;;
    datums) options+=' --names --json' ;;
    *) return ;;
  esac

  case $option in
    --to) _wayfell_words "$current" 'dec dm dms mgrs utm all' ;;
    --from) _wayfell_words "$current" 'utm mgrs' ;;
    --utm-type) _wayfell_words "$current" '0 1' ;;
    --units) _wayfell_words "$current" 'imperial metric nautical' ;;
    --datum) _wayfell_datums "$current" ;;
    --replay) _wayfell_files "$current" ;;
    --rate | --suite | --local | --every | --bearing | --distance) ;;
    *)
      if [[ $current == -* ]]; then
        _wayfell_words "$current" "$options"
      elif [[ $command == replay ]]; then
        _wayfell_files "$current"
      fi
      ;;
  esac
}

complete -F _wayfell wayfell
