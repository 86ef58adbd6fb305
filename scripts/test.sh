#!/usr/bin/env bash
# Builds everything and runs all tests: optimised, then under AddressSanitizer and UndefinedBehaviorSanitizer.
# With the name of one preset (release, debug, asan) only that.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-tools.sh test
for preset in ${1:-release asan}; do
  echo "== $preset"
  cmake --preset "$preset" -Wno-dev >build-configure.log 2>&1 || { cat build-configure.log; exit 1; }
  rm -f build-configure.log
  cmake --build --preset "$preset"
  ctest --preset "$preset" -j "$(nproc)"
done
