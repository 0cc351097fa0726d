set -l commands save compare expect record metrics
complete -c tamberline-inspect -f
complete -c tamberline-inspect -n "not __fish_seen_subcommand_from $commands" -a save -d 'Save the reports in a folder'
complete -c tamberline-inspect -n "not __fish_seen_subcommand_from $commands" -a compare -d 'Show what is different between two states'
complete -c tamberline-inspect -n "not __fish_seen_subcommand_from $commands" -a expect -d 'Check that everything is there'
complete -c tamberline-inspect -n "not __fish_seen_subcommand_from $commands" -a record -d 'Keep every change'
complete -c tamberline-inspect -n "not __fish_seen_subcommand_from $commands" -a metrics -d 'Print figures for Prometheus'
complete -c tamberline-inspect -n "__fish_seen_subcommand_from save compare expect record" -F
complete -c tamberline-inspect -l reports -x -a '(__fish_complete_directories)' -d 'Show the machine whose reports were saved in a folder'
complete -c tamberline-inspect -n "not __fish_seen_subcommand_from save record metrics" -l json -d 'Print everything as one JSON document'
complete -c tamberline-inspect -n "not __fish_seen_subcommand_from $commands" -l watch -d 'Print again after each change, until interrupted'
complete -c tamberline-inspect -n "__fish_seen_subcommand_from save record" -l anonymise -d 'Replace what identifies'
complete -c tamberline-inspect -n "__fish_seen_subcommand_from record" -l max-size -x -d 'End before it takes more megabytes'
complete -c tamberline-inspect -n "__fish_seen_subcommand_from expect" -l write -d 'Make the file from what is attached'
complete -c tamberline-inspect -n "__fish_seen_subcommand_from expect" -l tap -d 'Print the result for programs that run tests'
complete -c tamberline-inspect -n "__fish_seen_subcommand_from metrics" -l output -r -F -d 'Replace a file'
complete -c tamberline-inspect -l language -x -a 'en de fr it es' -d 'The language of the texts'
complete -c tamberline-inspect -s h -l help -d 'Print a summary'
complete -c tamberline-inspect -s V -l version -d 'Print the version'
