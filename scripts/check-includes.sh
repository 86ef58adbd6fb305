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

# Likewise the packages of core/, from the lowest up: a class names none of a package above its own.
packages=(
  hla.rti1516e.exceptions
  tovu.local.fom
  tovu.local.model.value
  tovu.local.model.port
  tovu.local.model.time
  tovu.local.model.exchange
  tovu.local.model.synchronization
  tovu.local.model.save
  tovu.local.saves
  tovu.local.model.federation
  tovu.local.management
  tovu.local.watch
  tovu.local.trace
  tovu.local.wire
  tovu.local.delivery
  tovu.local.remote
  morva.tovu1516e
  tovu.local.record
  tovu.local.hub
  tovu.local.cluster
)
declare -A height
for i in "${!packages[@]}"; do
  height[${packages[i]}]=$i
done
echo "== imports"
while IFS=: read -r file line class; do
  from=${file#core/src/}
  from=${from%/*}
  from=${from//\//.}
  to=${class%.*}
  : "${height[$from]?"$file: the package $from is not known here"}" "${height[$to]?"$file:$line: the package $to is not known here"}"
  if ((height[$to] > height[$from])); then
    echo "$file:$line: $from may not use $to" >&2
    exit 1
  fi
done < <(git grep -nwoE '(hla|morva|tovu)(\.[a-z0-9]+)+\.([A-Z]\w*|\*)' -- 'core/src/*.java')
