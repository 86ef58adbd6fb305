#!/usr/bin/env bash
# Builds the library and runs the examples: two federates that meet, an air-traffic picture of six, and the same with each
# of the six in a process of its own, one of which is killed. Fails if one of them finds that something went wrong.
# With the word cluster: three hubs as one service, one of which is killed.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-tools.sh
cmake --preset release -Wno-dev >build-configure.log 2>&1 || { cat build-configure.log; exit 1; }
rm -f build-configure.log
if [ "${1:-}" = cluster ]; then
  cmake --build --preset release --target hub_player localcore hub hubcluster
  export CLASSPATH="$PWD/build/release/tovu1516e.jar"
  echo
  exec scripts/cluster-demo.sh "$PWD/build/release/rti1516e-hub" "$PWD/build/release/tests/hub/hub_player" \
    "$PWD/examples/fom/Meeting.xml" java
fi
cmake --build --preset release --target meeting airtraffic localcore hub

export CLASSPATH="$PWD/build/release/tovu1516e.jar"
echo
build/release/examples/meeting examples/fom/Meeting.xml
build/release/examples/airtraffic examples/fom/AirTraffic.xml
echo
scripts/airtraffic-over-hub.sh build/release/rti1516e-hub build/release/examples/airtraffic examples/fom/AirTraffic.xml
