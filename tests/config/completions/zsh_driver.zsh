# zsh -f zsh_driver.zsh SCRIPT LINE...: completes each line in the line editor of an interactive zsh, and
# prints the line after "> ", then its completions with what is shown for each.
zmodload zsh/zpty
export DRIVER_OUTPUT=$(mktemp) DRIVER_SCRIPT=$1 DRIVER_SETUP=$(mktemp)
shift
print -rC1 -- "${(@q)@}" > $DRIVER_OUTPUT.lines
cat > $DRIVER_SETUP <<'EOF'
autoload -U compinit && compinit -u -D
source $DRIVER_SCRIPT
lines=("${(@Q)${(f)"$(<$DRIVER_OUTPUT.lines)"}}")
compadd() {
  # Hits are quoted as in the line. Calls that only ask what matches add nothing.
  if [[ ${@[1,(i)(-|--)]} == *-(O|A|D)\ * ]]; then
    builtin compadd "$@"
    return
  fi
  local -a hits shown
  local named
  (($@[(I)-d])) && named=$@[$@[(i)-d]+1] && shown=("${(@P)named}")
  builtin compadd -A hits -D shown "$@"
  local i
  for ((i = 1; i <= $#hits; ++i)); do print -r -- ${(Q)hits[i]}${shown[i]:+"	$shown[i]"}; done >> $DRIVER_OUTPUT
  builtin compadd "$@"
}
capture() {
  local line
  for line in $lines; do
    print -r -- "> $line" >> $DRIVER_OUTPUT
    BUFFER=$line
    CURSOR=$#BUFFER
    zle list-choices
  done
  exit
}
zle -N capture
bindkey '^T' capture
EOF
zpty shell zsh -f -i
zpty -w shell 'source $DRIVER_SETUP; print READY'
zpty -r shell seen '*READY*READY*'
zpty -w -n shell $'\x14'
while zpty -r shell seen 2> /dev/null; do :; done
cat $DRIVER_OUTPUT
rm -f $DRIVER_OUTPUT $DRIVER_OUTPUT.lines $DRIVER_SETUP
