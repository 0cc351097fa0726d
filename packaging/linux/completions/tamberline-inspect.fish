complete -c tamberline-inspect -f
complete -c tamberline-inspect -l reports -x -a '(__fish_complete_directories)' -d 'Show the machine whose reports were saved in a folder'
complete -c tamberline-inspect -l json -d 'Print everything the scan found as one JSON document'
complete -c tamberline-inspect -l watch -d 'Print again after each change, until interrupted'
complete -c tamberline-inspect -l language -x -a 'en de fr it es' -d 'The language of the texts'
complete -c tamberline-inspect -s h -l help -d 'Print a summary'
complete -c tamberline-inspect -s V -l version -d 'Print the version'
