#!/usr/bin/env bash
# Checks the formatting of all C++ sources and runs static analysis: cppcheck and clang-tidy over the library's
# sources, shellcheck over the scripts. With --fix it formats first. With --quick it leaves out clang-tidy, which takes
# minutes.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-tools.sh lint
quick=false
sources=$(git ls-files '*.h' '*.cpp' '*.def')
for option in "$@"; do
  case $option in
    --fix) xargs clang-format -i <<<"$sources" ;;
    --quick) quick=true ;;
    *)
      echo "usage: scripts/lint.sh [--fix] [--quick]" >&2
      exit 2
      ;;
  esac
done

echo "== clang-format"
xargs clang-format --dry-run -Werror <<<"$sources"

echo "== shellcheck"
# Dollars and backquotes in single quotes are meant (SC2016).
git ls-files '*.sh' .ci | xargs shellcheck --exclude=SC2016

scripts/check-includes.sh

library=$(git ls-files src | grep '\.cpp$')
echo "== cppcheck"
# With the macros that decide between the branches, it does not try all of their combinations.
mkdir -p build/cppcheck
xargs cppcheck --quiet --error-exitcode=1 --cppcheck-build-dir=build/cppcheck -j "$(nproc)" \
  --enable=warning,performance,portability --suppressions-list=.cppcheck-suppressions --suppress=missingIncludeSystem \
  --language=c++ --std=c++17 -D__GNUC__=12 -D__x86_64__ -D__cplusplus=201703L -I include -I . <<<"$library"

if ! $quick; then
  echo "== clang-tidy"
  cmake --preset release -Wno-dev >/dev/null
  # Says which file it is at; how many warnings of others' headers it keeps to itself is of no interest.
  xargs -t -P "$(nproc)" -n 1 clang-tidy --quiet -p build/release <<<"$library" 2>&1 |
    { grep -v ' warnings generated' || true; }
fi
