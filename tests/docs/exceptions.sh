#!/usr/bin/env bash
# The exceptions that the comments of RTIambassador.h list are those of the services' rows, in the same order.
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

# A row may name lists of exceptions that rows have in common.
rows() {
  { sed -n '/^using [A-Z0-9]* = \(Raises\|Flattened\)</,/;/p' src/services/Services.h
    grep -v '^ *\(//\|#\)' src/services/Services.def; } |
    tr -d '\n' | sed -e 's/using /\n/g' -e 's/SERVICE(/\nSERVICE /g' | awk '
    function expanded(list,   i, n, names, all) {
      n = split(list, names, /[, ]+/)
      for (i = 1; i <= n; ++i) if (names[i] != "") all = all " " (names[i] in common ? common[names[i]] : names[i])
      gsub(/ +/, " ", all); sub(/^ /, "", all)
      return all
    }
    / = / { name = $1; sub(/^[^<]*</, ""); sub(/>.*/, ""); common[name] = expanded($0) }
    /^SERVICE/ {
      name = $2; sub(/[,_].*/, "", name)
      sub(/^[^)]*\),? */, ""); sub(/\) *$/, "")
      list = expanded($0)
      print name, list == "" ? "RTIinternalError" : list # what no row foresees
    }' | numbered
}

if ! diff <(listed) <(rows); then
  echo "Lines with < are what the comments in RTIambassador.h list, lines with > are what the rows say." >&2
  exit 1
fi
