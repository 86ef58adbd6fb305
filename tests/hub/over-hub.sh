#!/usr/bin/env bash
# Runs a program whose federates meet at a hub that is there for it alone, or as many processes of it as
# SYSTEM_TESTS_SHARES says: over-hub.sh HUB PROGRAM [ARGUMENT]...
set -euo pipefail

scratch=$(mktemp -d)
: >"$scratch/hub.txt" # which the hub may open later than this looks into it
"$1" --listen 127.0.0.1:0 >"$scratch/hub.txt" &
hub=$!
trap 'kill $hub 2>/dev/null || true; wait $hub || true; rm -rf "$scratch"' EXIT
for ((i = 0; i < 300; ++i)); do
  address=$(sed -n 's/^listening on //p' "$scratch/hub.txt")
  [ -z "$address" ] || break
  sleep 0.1
done
export TOVU1516_OPTION2=-Dtovu.hub=${address:?the hub does not say where it listens}
shift
pids=()
for ((share = 0; share < ${SYSTEM_TESTS_SHARES:-1}; ++share)); do
  SYSTEM_TESTS_SHARE=$share "$@" &
  pids+=($!)
done
for each in "${pids[@]}"; do wait "$each"; done
