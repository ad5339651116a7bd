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

# What comes after so many words, which are no options, of a command that has actions.
_wayfell_action() {
  local command=$1 action=$2 current=$3 place=$4
  local shared='units coordinateUnits speed useMils compassHeading rotateMap mapCompassType
    hasWaypoint waypointLatitude waypointLongitude distance time viewHidden widgetAddressString'
  local own='angleUnits utmType selectedDatum addressDate'
  case $command:$action in
    settings:) _wayfell_words "$current" 'list get set unset' ;;
    settings:get | settings:set | settings:unset)
      ((place == 2)) || return
      [[ " ${COMP_WORDS[*]} " == *' --local '* ]] && shared+=" $own"
      _wayfell_words "$current" "$shared"
      ;;
    waypoint:) _wayfell_words "$current" 'set show clear' ;;
    track:) _wayfell_words "$current" 'publish clear' ;;
    addresses:) _wayfell_words "$current" 'import find info use' ;;
    addresses:import) _wayfell_files "$current" ;;
    addresses:use) ((place == 2)) && _wayfell_words "$current" 'book nominatim none' ;;
  esac
}

_wayfell() {
  local current=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]} command='' word
  local action='' place=0
  COMPREPLY=()
  # In --option=value the sign is a word of its own.
  if [[ $current == = ]]; then
    current=''
  elif [[ $option == = ]]; then
    option=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    [[ $word == -* ]] && continue
    ((++place))
    case $place in
      1) command=$word ;;
      2) action=$word ;;
    esac
  done

  local options='--help --version'
  case $command in
    '')
      _wayfell_words "$current" "today replay settings waypoint track addresses convert distance datums $options"
      return
      ;;
    today) options+=' --gpsd --demo --replay --rate --suite --local' ;;
    replay) options+=' --demo --suite --local --every --text' ;;
    settings)
      options+=' --suite --local --cloud'
      case $action in
        list | get) options+=' --json' ;;
        set) options+=' --type' ;;
      esac
      ;;
    waypoint)
      case $action in
        set) options+=' --gpx --name' ;;
        show) options+=' --json' ;;
      esac
      ;;
    track) ;;
    addresses)
      case $action in
        import) options+=' --country --add' ;;
        find) options+=' --online --json' ;;
        use) options+=' --url --yes' ;;
      esac
      ;;
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
    --replay | --gpx) _wayfell_files "$current" ;;
    --type) _wayfell_words "$current" 'boolean integer real text date data list dictionary' ;;
    --rate | --every | --bearing | --distance | --name | --country | --url) ;;
    *)
      # Of settings these are options without a value.
      [[ $command != settings && $option == --@(suite|local) ]] && return
      if [[ $current == -* ]]; then
        _wayfell_words "$current" "$options"
      elif [[ $command == replay ]]; then
        _wayfell_files "$current"
      else
        _wayfell_action "$command" "$action" "$current" "$place"
      fi
      ;;
  esac
}

complete -F _wayfell wayfell
