#!/usr/bin/env bash
# Ten million services and callbacks from eight threads, or as many as told; see tests/soak/Soak.cpp.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-tools.sh
cmake --preset release -Wno-dev >build-configure.log 2>&1 || { cat build-configure.log; exit 1; }
rm -f build-configure.log
cmake --build --preset release --target soak
build/release/tests/soak/soak "${1:-10000000}"
