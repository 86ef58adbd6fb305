#!/usr/bin/env bash
# Builds the library and runs two federates through a whole federation, printing what each of them sees.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-tools.sh
cmake --preset release -Wno-dev >build-configure.log 2>&1 || { cat build-configure.log; exit 1; }
rm -f build-configure.log
cmake --build --preset release --target meeting localcore
echo
CLASSPATH="$PWD/build/release/tovu1516e.jar" build/release/examples/meeting examples/fom/Meeting.xml
