# Completion of vantor's arguments in fish; files where nothing else fits.
complete -c vantor -l demo -d 'Show a sample library, without an account'
complete -c vantor -l diagnose -d 'Tell what a report of a fault needs'
complete -c vantor -l help -d 'Tell the options'
complete -c vantor -l show -x -a 'live movies shows search list' -d 'Begin with a section'
complete -c vantor -l smoke-test -r -d 'Play a media file, without account and settings'
complete -c vantor -l verbose -d 'Tell on standard error what fails, and how'
complete -c vantor -l version -d 'Say which version this is'
