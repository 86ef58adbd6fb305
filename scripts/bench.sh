#!/usr/bin/env bash
# Builds and runs all benchmarks, writes their tables to the screen and to bench/RESULTS.md, and draws their ratios
# in bench/ratios.svg. Fails if a measurement is above its bound. Arguments go to the benchmark programs, such as
# --benchmark_repetitions=5.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-tools.sh bench
build=build/bench
results=bench/RESULTS.md
cmake --preset release -Wno-dev -B $build -DRTI1516E_BENCH=ON >/dev/null
targets=$(ninja -C $build -t targets all | sed -n 's/^\([a-z]*_bench\): phony$/\1/p' | sort)
# shellcheck disable=SC2086
cmake --build $build --target $targets object_memory

cached() { sed -n "s/^$1:[A-Z]*=//p" $build/CMakeCache.txt; }
{
  echo "# Results of the benchmarks"
  echo
  echo "Written by \`scripts/bench.sh\`: medians of runs that are repeated and interleaved in one process, in"
  echo "processor time; those of \`hub_bench\` in several processes, in elapsed time. What the floors are, and why"
  echo "some bounds are exceeded, is told in \`docs/performance.md\`."
  echo
  echo "![The ratios against their bounds](ratios.svg)"
  echo
  echo "| | |"
  echo "|:--|:--|"
  echo "| date | $(date +%F) |"
  echo "| processor | $(sed -n 's/^model name.*: //p;' /proc/cpuinfo | head -1), $(nproc) cores |"
  echo "| memory | $(awk '/MemTotal/ {printf "%d GB", $2 / 1e6}' /proc/meminfo) |"
  echo "| system | $(uname -sr), $(sed -n 's/^PRETTY_NAME="\(.*\)"/\1/p' /etc/os-release) |"
  echo "| compiler | $("$(cached CMAKE_CXX_COMPILER)" --version | head -1), $(cached CMAKE_CXX_FLAGS_RELEASE) |"
  echo "| Java | $(java -version 2>&1 | sed -n 2p) |"
  echo "| load | $(cut -d' ' -f1-3 /proc/loadavg), of other programs before the first run |"
} >$results

failed=0
for target in $targets; do
  echo "== $target"
  printf '\n## %s\n' "$target" >>$results
  status=0
  "$build/bench/$target" "$@" >$build/output.txt 2>$build/errors.txt || status=$?
  if [ $status -gt 1 ]; then
    cat $build/output.txt $build/errors.txt
    exit $status
  fi
  failed=$((failed | status))
  { echo; grep '^|' $build/output.txt; } | tee -a $results
done
printf '\n## Memory of objects\n\n' >>$results
java -cp $build/tovu1516e.jar:$build/bench/objectmemory.jar ObjectMemory | tee -a $results
bench/plot-ratios.sh $results >bench/ratios.svg
echo "Written to $results and bench/ratios.svg"
exit $failed
