# Completion of wayfell's command line for fish.
# Installed as share/fish/vendor_completions.d/wayfell.fish; or: source completions/wayfell.fish

function __wayfell_datums
    set -l program (commandline -opc)[1]
    $program datums --names 2>/dev/null
end

# Whether the command line is of this command and, where they are given, has one of these actions;
# '' is none yet.
function __wayfell_at
    set -l words (string match -v -- '-*' (commandline -opc)[2..-1])
    test "$words[1]" = $argv[1]; or return
    test (count $argv) -eq 1; or contains -- "$words[2]" $argv[2..-1]
end

function __wayfell_at_key
    __wayfell_at settings get set unset
    and test (count (string match -v -- '-*' (commandline -opc))) -eq 3
end

complete -c wayfell -f
complete -c wayfell -s h -l help -d 'Show help'
complete -c wayfell -l version -d 'Show the version'

set -l commands today replay settings waypoint track addresses convert distance datums
set -l none "not __fish_seen_subcommand_from $commands"
complete -c wayfell -n $none -a today -d 'Show the live panel in the terminal'
complete -c wayfell -n $none -a replay -d 'Replay a recording and print what the widget shows'
complete -c wayfell -n $none -a settings -d 'Read and write the settings that are kept on disk'
complete -c wayfell -n $none -a waypoint -d 'Set, show and clear the waypoint'
complete -c wayfell -n $none -a track -d 'Publish the figures of the track being recorded'
complete -c wayfell -n $none -a addresses -d 'Say where street addresses come from, and find them'
complete -c wayfell -n $none -a convert -d 'Show positions in other formats, read references back'
complete -c wayfell -n $none -a distance -d 'Measure from a position to another, or find a destination'
complete -c wayfell -n $none -a datums -d 'List and search the datums'

set -l today '__wayfell_at today'
complete -c wayfell -n $today -l demo -d 'Show the recording that is built in'
complete -c wayfell -n $today -l gpsd -x -a '(__fish_print_hostnames)' -d 'Show what this gpsd reports'
complete -c wayfell -n $today -l replay -r -F -d 'Show this recording'
complete -c wayfell -n $today -l rate -x -d 'Recorded seconds to a real one'

set -l replay '__wayfell_at replay'
complete -c wayfell -n $replay -F
complete -c wayfell -n $replay -l demo -d 'Replay the recording that is built in'
complete -c wayfell -n $replay -l every -x -d 'Also show the widget every so many seconds'
complete -c wayfell -n $replay -l text -d 'Draw the panel instead of printing JSON'

set -l recording '__wayfell_at today; or __wayfell_at replay'
complete -c wayfell -n $recording -l suite -x -d 'Set a value of the shared settings first'
complete -c wayfell -n $recording -l local -x -d "Set a value of the widget's own settings first"

set -l settings '__wayfell_at settings'
set -l action "__wayfell_at settings ''"
complete -c wayfell -n $settings -l suite -d 'Those shared with the app'
complete -c wayfell -n $settings -l local -d "The widget's own"
complete -c wayfell -n $settings -l cloud -d 'Those of the cloud'
complete -c wayfell -n $action -a list -d 'Print all'
complete -c wayfell -n $action -a get -d 'Print the value of one'
complete -c wayfell -n $action -a set -d 'Write one'
complete -c wayfell -n $action -a unset -d 'Remove one'
complete -c wayfell -n '__wayfell_at settings list get' -l json -d 'Print one JSON object a line'
complete -c wayfell -n '__wayfell_at settings set' -l type -x -a 'boolean integer real text date data list dictionary' -d 'Type of the value'
set -l key __wayfell_at_key
complete -c wayfell -n $key -a 'units\t"0 imperial, 1 metric, 2 nautical" coordinateUnits\t"0 to 4, the format of the position"'
complete -c wayfell -n $key -a 'speed\t"0 pace or speed, 1 pace, 2 speed" useMils\t"directions in mils"'
complete -c wayfell -n $key -a 'compassHeading\t"0 true north, 1 magnetic north" rotateMap mapCompassType'
complete -c wayfell -n $key -a 'hasWaypoint waypointLatitude\tdegrees waypointLongitude\tdegrees'
complete -c wayfell -n $key -a 'distance\t"metres of the track" time\t"seconds of the track"'
complete -c wayfell -n $key -a 'viewHidden\t"whether the layout is the compact one" widgetAddressString\t"the last address found"'
set -l own '__wayfell_at_key; and __fish_contains_opt local'
complete -c wayfell -n $own -a 'angleUnits\t"0 degrees, 1 mils" utmType\t"0 hemispheres, 1 latitude bands"'
complete -c wayfell -n $own -a 'selectedDatum\t"positions are shown on it" addressDate\t"of the last address lookup"'

set -l action "__wayfell_at waypoint ''"
complete -c wayfell -n $action -a set -d 'Set it'
complete -c wayfell -n $action -a show -d 'Print its position'
complete -c wayfell -n $action -a clear -d 'Have none any more'
complete -c wayfell -n '__wayfell_at waypoint set' -l gpx -r -F -d 'A file with it'
complete -c wayfell -n '__wayfell_at waypoint set' -l name -x -d 'Which one of the file'
complete -c wayfell -n '__wayfell_at waypoint show' -l json -d 'Print a JSON object with numbers'

set -l action "__wayfell_at track ''"
complete -c wayfell -n $action -a publish -d 'Write distance and time'
complete -c wayfell -n $action -a clear -d 'Remove both'

set -l action "__wayfell_at addresses ''"
complete -c wayfell -n $action -a import -d 'Make the address book out of files'
complete -c wayfell -n $action -a find -d 'Find the address of a position'
complete -c wayfell -n $action -a info -d 'Show the service in use and the book'
complete -c wayfell -n $action -a use -d 'Choose where addresses come from'
complete -c wayfell -n '__wayfell_at addresses import' -F
complete -c wayfell -n '__wayfell_at addresses import' -l country -x -d 'Where it is, two letters'
complete -c wayfell -n '__wayfell_at addresses import' -l add -d 'Keep what is in the book'
complete -c wayfell -n '__wayfell_at addresses find' -l online -d 'Ask the server that was agreed to'
complete -c wayfell -n '__wayfell_at addresses find' -l json -d 'Print a JSON object'
complete -c wayfell -n '__wayfell_at addresses use' -l url -x -d 'Another server than the public one'
complete -c wayfell -n '__wayfell_at addresses use' -l yes -d 'Agree that positions are sent to the server'
complete -c wayfell -n '__wayfell_at addresses use' -a 'book\t"the address book" nominatim\t"a server over the network" none\t"no addresses"'

set -l convert '__wayfell_at convert'
complete -c wayfell -n $convert -l to -x -a 'dec dm dms mgrs utm all' -d Format
complete -c wayfell -n $convert -l from -x -a 'utm mgrs' -d 'Read references'
complete -c wayfell -n $convert -l datum -x -a '(__wayfell_datums)' -d 'Datum of texts and references'
complete -c wayfell -n $convert -l utm-type -x -a '0\themispheres 1\t"latitude bands"' -d 'What UTM letters are'

set -l distance '__wayfell_at distance'
complete -c wayfell -n $distance -l bearing -x -d 'Degrees clockwise from north'
complete -c wayfell -n $distance -l distance -x -d 'Metres to go'
complete -c wayfell -n $distance -l units -x -a 'imperial metric nautical' -d 'Units of the distance'
complete -c wayfell -n $distance -l mils -d 'Show the bearing in mils'

set -l datums '__wayfell_at datums'
complete -c wayfell -n $datums -l names -d 'Print names only, one a line'

complete -c wayfell -n '__wayfell_at convert; or __wayfell_at distance; or __wayfell_at datums' -l json -d 'Print one JSON object a line'
