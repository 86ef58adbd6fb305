#!/usr/bin/env bash
# The exceptions that the comments of RTIambassador.h list are those that the contract has, in the same order.
set -euo pipefail
cd "$(dirname "$0")/../.."

# Each service and its exceptions, a line each, overloads as name 1, name 2, in the order in which they stand.
numbered() { awk '{ name = $1; $1 = ""; print name, ++count[name] ":" $0 }' | sort; }

listed() {
  awk '
    /^ *\/\/ / { sub(/^ *\/\/ /, ""); comment = comment " " $0; next }
    /^   virtual [^~]*[(]/ || waiting {
      declaration = declaration $0
      waiting = declaration !~ /;/
      if (waiting) next
      match(declaration, /[A-Za-z]+[(]/)
      name = substr(declaration, RSTART, RLENGTH - 1)
      if (name !~ /^decode/) {
        sub(/.*Throws /, "", comment); sub(/\..*/, "", comment); gsub(/,/, "", comment)
        sub(/WithMIM$/, "", name)
        print name, comment
      }
    }
    { comment = declaration = "" }' include/RTI/RTIambassador.h | numbered
}

# Overloads and the services with a list of modules or a MIM are one name.
rows() {
  sed -nE 's/^\| `([A-Za-z]+)[^`]*` \| `\([^`]*` \| *(.*) \|$/\1 \2/p' docs/methods.md | tr -d , |
    sed -E 's/^(\S+) *(none)?$/\1 RTIinternalError/' | numbered
}

if ! diff <(listed) <(rows); then
  echo "Lines with < are what the comments in RTIambassador.h list, lines with > are those of the contract." >&2
  exit 1
fi
