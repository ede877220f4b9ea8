#!/bin/sh
# Checks that programs answer in a shell as a guide page shows it.
#
#     check_sessions.sh PAGE FOLDER NAME=PROGRAM...
#
# Makes the folder anew, and goes through the page: a block of ```ini NAME is written to the file NAME in the
# folder; in a block of ```console, each line that begins with "$ " is run there, and what it writes must be
# the lines that follow. The programs have the given names.
set -eu
page=$1
folder=$2
shift 2
rm -rf "$folder"
mkdir -p "$folder/programs" "$folder/work"
for program in "$@"; do
  ln -s "${program#*=}" "$folder/programs/${program%%=*}"
done

awk -v script="$folder/script" -v expected="$folder/expected" -v quote="'" '
  /^```ini / { print "cat >" $2 " <<\\END_OF_FILE" > script; block = "ini"; next }
  /^```console$/ { block = "console"; next }
  /^```/ { if (block == "ini") print "END_OF_FILE" > script; block = ""; next }
  block == "ini" { print > script }
  block != "console" { next }
  { print > expected }
  /^\$ / {
    shown = $0
    gsub(quote, quote "\\" quote quote, shown)
    print "printf " quote "%s\\n" quote " " quote shown quote > script
    # The exit code of the command before is that of this shell, too.
    print "{ (exit $code); " substr($0, 3) "\n} 2>&1; code=$?" > script
  }
' "$page"

cd "$folder/work"
export PATH="$folder/programs:$PATH" COLUMNS=80 LC_ALL=C
unset LANGUAGE LC_MESSAGES VIEWER_THREADS || true
code=0 sh "$folder/script" > "$folder/output"
diff -u "$folder/expected" "$folder/output" && echo "as shown"
