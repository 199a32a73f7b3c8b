# Completion of vantor's arguments in bash.
_vantor() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
  COMPREPLY=()
  if [ "$before" = --show ]; then
    mapfile -t COMPREPLY < <(compgen -W 'live movies shows search list' -- "$word")
  elif [[ $word == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W '--demo --diagnose --help --show --smoke-test --verbose --version' -- "$word")
  fi
}
# Files where nothing else fits.
complete -o default -F _vantor vantor
