#!/usr/bin/env bash
# Checks the formatting of all C++ sources and runs static analysis over the library's. With --fix it formats.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-tools.sh lint
sources=$(git ls-files '*.h' '*.cpp' '*.def')
if [ "${1:-}" = --fix ]; then
  xargs clang-format -i <<<"$sources"
fi
xargs clang-format --dry-run -Werror <<<"$sources"

cmake --preset release -Wno-dev >/dev/null
git ls-files api bridge fedtime gen | grep '\.cpp$' |
  xargs -P "$(nproc)" -n 4 clang-tidy --quiet -p build/release
