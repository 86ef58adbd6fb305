#!/usr/bin/env bash
# Compiles the federate with all callbacks in one dialect, and the public headers: in the oldest dialect, whose
# standard headers include the least, every one alone; in the others all of them together.
# compile-all.sh COMPILER DIALECT SOURCE-FOLDER BUILD-FOLDER
set -euo pipefail
compile=("$1" "-std=c++$2" -fsyntax-only -I "$3/include" -I "$4" -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
cd "$3/include"
all=()
for header in RTI/*.h RTI/*/*.h; do
  all+=(-include "$header")
  [ "$2" -ne 11 ] || "${compile[@]}" -include "$header" -x c++ /dev/null
done
"${compile[@]}" "${all[@]}" -x c++ /dev/null

callbacks=$3/tests/consumer/Callbacks.cpp
"${compile[@]}" "$callbacks"
# Later dialects have no exception specifications but noexcept; these compilers warn of them before.
[ "$2" -ge 17 ] || "${compile[@]}" -D EXCEPTION_SPECIFICATIONS -Wno-deprecated "$callbacks"
