#!/usr/bin/env bash
# Runs the air-traffic example with each federate in a process of its own: they meet at a hub. One is killed on the
# way, and the others go on without it. airtraffic-over-hub.sh HUB AIRTRAFFIC FOM, with CLASSPATH naming the core's jar
set -euo pipefail
hub=$1 airtraffic=$2 fom=$3
scratch=$(mktemp -d)
pids=()
trap 'kill -KILL "${pids[@]}" 2>/dev/null || true; wait 2>/dev/null || true; rm -rf "$scratch"' EXIT

"$hub" --listen 127.0.0.1:0 --web 127.0.0.1:0 >"$scratch/hub" &
pids+=($!)
until grep -q '^listening on ' "$scratch/hub"; do
  kill -0 "${pids[0]}"
  sleep 0.1
done
sed 's/^listening/The hub is listening/; s/^page/Watch it on the page/' "$scratch/hub"
TOVU1516_OPTION1=-Dtovu.hub=$(sed -n "s/^listening on //p" "$scratch/hub")
export TOVU1516_OPTION1

for name in West Centre East Kite Heron; do
  "$airtraffic" "$fom" $name &
  pids+=($!)
done
heron=$!
disown "$heron" # that it is killed goes without saying
"$airtraffic" "$fom" Radar | while IFS= read -r line; do
  printf '%s\n' "$line"
  if [[ $line == *" Radar 04:55"* ]]; then
    echo "Heron's process is killed now."
    kill -KILL "$heron"
  fi
done | tee "$scratch/radar"
for each in "${pids[@]:1:4}"; do wait "$each"; done
grep -q '^Heron is lost' "$scratch/radar"
grep -q '^Radar has come to the end' "$scratch/radar"
