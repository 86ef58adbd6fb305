#!/usr/bin/env bash
# Runs all tests with coverage counted, and tells which lines and branches of the library's sources they reach; a page
# for each file is in build/coverage/report.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-tools.sh coverage
build=build/coverage
cmake -S . -B $build -G Ninja -Wno-dev -DCMAKE_BUILD_TYPE=Debug -DRTI1516E_DEVELOPER=ON \
  -DCMAKE_CXX_FLAGS="--coverage -fprofile-update=atomic" >/dev/null
cmake --build $build
find $build -name '*.gcda' -delete
# What compiles federates, packages or reads documentation reaches nothing new.
ctest --test-dir $build -j "$(nproc)" --output-on-failure -E '^(consumer|docs|exports|fuzz.decode$|localcore)' | tail -8
mkdir -p $build/report
# Branches of calls that could only throw for want of memory are no branches of the source.
gcovr -r . $build -j "$(nproc)" --exclude-throw-branches --exclude-unreachable-branches \
  -f 'src/' -f 'include/' \
  --html-details $build/report/index.html --txt --print-summary
