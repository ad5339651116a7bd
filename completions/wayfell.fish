# Completion of wayfell's command line for fish.
# Installed as share/fish/vendor_completions.d/wayfell.fish; or: source completions/wayfell.fish

function __wayfell_datums
    set -l program (commandline -opc)[1]
    $program datums --names 2>/dev/null
end

complete -c wayfell -f
complete -c wayfell -s h -l help -d 'Show help'
complete -c wayfell -l version -d 'Show the version'

set -l commands today replay convert distance datums
set -l none "not __fish_seen_subcommand_from $commands"
complete -c wayfell -n $none -a today -d 'Show the live panel in the terminal'
complete -c wayfell -n $none -a replay -d 'Replay a recording and print what the widget shows'
complete -c wayfell -n $none -a convert -d 'Show positions in other formats, read references back'
complete -c wayfell -n $none -a distance -d 'Measure from a position to another, or find a destination'
complete -c wayfell -n $none -a datums -d 'List and search the datums'

set -l today '__fish_seen_subcommand_from today'
complete -c wayfell -n $today -l demo -d 'Show the recording that is built in'
complete -c wayfell -n $today -l replay -r -F -d 'Show this recording'
complete -c wayfell -n $today -l rate -x -d 'Recorded seconds to a real one'

set -l replay '__fish_seen_subcommand_from replay'
complete -c wayfell -n $replay -F
complete -c wayfell -n $replay -l demo -d 'Replay the recording that is built in'
complete -c wayfell -n $replay -l every -x -d 'Also show the widget every so many seconds'
complete -c wayfell -n $replay -l text -d 'Draw the panel instead of printing JSON'

set -l recording '__fish_seen_subcommand_from today replay'
complete -c wayfell -n $recording -l suite -x -d 'Set a value of the shared settings first'
complete -c wayfell -n $recording -l local -x -d "Set a value of the widget's own settings first"

set -l convert '__fish_seen_subcommand_from convert'
complete -c wayfell -n $convert -l to -x -a 'dec dm dms mgrs utm all' -d Format
complete -c wayfell -n $convert -l from -x -a 'utm mgrs' -d 'Read references'
complete -c wayfell -n $convert -l datum -x -a '(__wayfell_datums)' -d 'Datum of texts and references'
complete -c wayfell -n $convert -l utm-type -x -a '0\themispheres 1\t"latitude bands"' -d 'What UTM letters are'

set -l distance '__fish_seen_subcommand_from distance'
complete -c wayfell -n $distance -l bearing -x -d 'Degrees clockwise from north'
complete -c wayfell -n $distance -l distance -x -d 'Metres to go'
complete -c wayfell -n $distance -l units -x -a 'imperial metric nautical' -d 'Units of the distance'
complete -c wayfell -n $distance -l mils -d 'Show the bearing in mils'

set -l datums '__fish_seen_subcommand_from datums'
complete -c wayfell -n $datums -l names -d 'Print names only, one a line'

complete -c wayfell -n '__fish_seen_subcommand_from convert distance datums' -l json -d 'Print one JSON object a line'
