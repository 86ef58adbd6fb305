#!/usr/bin/env bash
# Fuzzes what is decoded, and FOM modules, each for so many seconds (300 if not told). Decoding begins with the corpus in
# fuzz/corpus. What its fuzzer learns stays in build/fuzz for the next time; with --keep, the inputs that add something go into fuzz/corpus.
set -euo pipefail
cd "$(dirname "$0")/.."

keep=
if [ "${1:-}" = --keep ]; then
  keep=1
  shift
fi
seconds=${1:-300}

scripts/install-tools.sh fuzz
cmake --preset release -Wno-dev >build-configure.log 2>&1 || { cat build-configure.log; exit 1; }
rm -f build-configure.log
cmake --build --preset release --target decode_fuzzer localcore-tests

fuzzer=$PWD/build/release/fuzz/decode_fuzz
work=build/fuzz/decode
mkdir -p "$work/learnt"
echo "== decoding, $seconds s"
(cd "$work" && "$fuzzer" -max_total_time="$seconds" -max_len=512 -rss_limit_mb=2048 -malloc_limit_mb=64 -print_final_stats=1 \
  learnt "../../../fuzz/corpus/decode" 2>&1 | grep -Ev '^(#|INFO|")')
if [ -n "$keep" ]; then
  "$fuzzer" -use_counters=0 -set_cover_merge=1 fuzz/corpus/decode "$work/learnt" >/dev/null 2>&1
fi

echo "== FOM modules, $seconds s"
end=$((SECONDS + seconds))
while [ $SECONDS -lt $end ]; do
  java -ea -Dfom.modules=tests/system/fom -Dfom.cases=tests/core/Modules.xml -Dfom.mutants=10000 \
    -Dfom.seed=$((RANDOM * 32768 + RANDOM)) \
    -cp build/release/tovu1516e.jar:build/release/tests/core/localcore-tests.jar FomTest
done
