#!/usr/bin/env bash
# Builds the library and runs the examples: two federates that meet, then an air-traffic picture of six. Fails if one
# of them finds that something went wrong.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-tools.sh
cmake --preset release -Wno-dev >build-configure.log 2>&1 || { cat build-configure.log; exit 1; }
rm -f build-configure.log
cmake --build --preset release --target meeting airtraffic localcore

export CLASSPATH="$PWD/build/release/tovu1516e.jar"
echo
build/release/examples/meeting examples/fom/Meeting.xml
build/release/examples/airtraffic examples/fom/AirTraffic.xml
