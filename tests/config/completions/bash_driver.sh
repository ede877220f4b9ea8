# bash bash_driver.sh SCRIPT LINE...: completes each line as bash does, and prints the line after "> ", then its
# completions. <file> stands for those of files, which readline has.
source "$1" || exit
shift
compopt() { [[ $* == "-o default" ]] && echo "<file>"; }

for line in "$@"; do
  echo "> $line"
  # As readline splits them: at blanks outside quotes, and each = and : is a word.
  COMP_WORDS=()
  rest=$line
  while [[ $rest =~ ^[[:space:]]*([=:]+|([^[:space:]=:\\]|\\.)+)(.*)$ ]]; do
    COMP_WORDS+=("${BASH_REMATCH[1]}")
    rest=${BASH_REMATCH[3]}
  done
  [[ $line == *[[:space:]] ]] && COMP_WORDS+=("")
  COMP_LINE=$line
  COMP_POINT=${#line}
  COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
  [[ $(complete -p -- "${COMP_WORDS[0]}") =~ \ -F\ ([^\ ]+)\  ]] || exit
  COMPREPLY=()
  "${BASH_REMATCH[1]}" "${COMP_WORDS[0]}" "${COMP_WORDS[COMP_CWORD]}" ""
  # As the shell reads them when the line is run.
  for each in "${COMPREPLY[@]}"; do eval "printf '%s\n' $each"; done
done
