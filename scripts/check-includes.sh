#!/usr/bin/env bash
# Each room of src/ stands above those that it needs: fails on the first include that points to another one.
set -euo pipefail
cd "$(dirname "$0")/.."

declare -A needs=(
  [values]=""
  [time]="values"
  [encoding]="values"
  [jvm]="values"
  [messages]="jvm values"
  [callbacks]="messages jvm values"
  [services]="callbacks messages jvm values"
  [fedtime]=""
)
echo "== includes"
while IFS=: read -r file line include; do
  from=$(cut -d/ -f2 <<<"$file")
  to=$(cut -d/ -f2 <<<"$include")
  case " $from ${needs[$from]?"$file: the room $from is not known here"} " in
    *" $to "*) ;;
    *)
      echo "$file:$line: $from may not include from $to: ${include%\"}" >&2
      exit 1
      ;;
  esac
done < <(git grep -nE '^ *#include "' -- src | sed -E 's/ *#include "//')
