#!/usr/bin/env bash
# Does what a reader of a tutorial does, in a folder of its own: puts its snippets into the files that they name, runs
# its commands, in one shell, and compares what they print with what it says. CONTRIBUTING.md tells which block is what.
# follow.sh TUTORIAL.md PREFIX
set -euo pipefail
tutorial=$(realpath "$1") prefix=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
unset CLASSPATH LD_LIBRARY_PATH

# One shell script that does it all: the files are written first, each from all of its pieces.
awk -v scratch="$scratch" '
  /^```/ && !inside { inside = 1; language = substr($1, 4); file = $2; expected = ""; next }
  /^```$/ && inside {
    inside = 0
    if (language == "text" && file == "") printf "expect <<\"END OF TEXT\"\n%sEND OF TEXT\n", expected
    next
  }
  !inside { next }
  file != "" { print > (scratch "/" file); next }
  language == "sh" { print; next }
  language == "text" { expected = expected $0 "\n"; next }
  language != "console" { print FILENAME ":" FNR ": a snippet for no file" > "/dev/stderr"; exit 1 }
' "$tutorial" | sed "s|^PREFIX=.*|PREFIX='$prefix'|" >"$scratch/steps"

cd "$scratch"
exec 3>&1 >>printed
expect() {
  cat >expected
  if ! diff --label "what the tutorial says" --label "what was printed" expected printed >&2; then
    exit 1
  fi
  cat printed >&3
  : >printed
}
set -x
# shellcheck source=/dev/null
source ./steps
