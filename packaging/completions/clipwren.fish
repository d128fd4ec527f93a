# Completion of clipwren(1) for fish

complete -c clipwren -f
complete -c clipwren -n __fish_use_subcommand -a save -d 'Save a video without a window'
complete -c clipwren -n __fish_use_subcommand -l new-download -d 'Open the window for a new address'
complete -c clipwren -n __fish_use_subcommand -l version -d 'Print the version'
complete -c clipwren -l help -d 'Print how the program is called'
complete -c clipwren -n '__fish_seen_subcommand_from save' -x -l format -d 'Choose the format' \
    -a "bestResolution\t'The largest picture there is' macCompatible\t'H.264 in MP4' \
        proRes422\t'For editing' audioMP3\t'The sound alone'"
complete -c clipwren -n '__fish_seen_subcommand_from save' -x -l trim -d 'Keep this range only'
complete -c clipwren -n '__fish_seen_subcommand_from save' -x -l title -d 'Title of the file'
