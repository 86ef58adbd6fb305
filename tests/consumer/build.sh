#!/usr/bin/env bash
# Builds an example against an installed tree, and runs it: build.sh PREFIX COMPILER DIALECT FOM-MODULE.
# Nothing but the installed tree may be found, and so nothing else is in the environment. Other ways to build federates
# are in the tutorial, which is followed by tests of its own.
set -euo pipefail
prefix=$1
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
unset CLASSPATH LD_LIBRARY_PATH CPATH LIBRARY_PATH CXXFLAGS LDFLAGS
"$2" "-std=c++$3" -Werror -Wall -Wextra -Wpedantic -Wshadow -Wconversion "-I$prefix/include" \
  "$(dirname "$0")/../../examples/meeting.cpp" "-L$prefix/lib" -lrti1516e -lfedtime1516e "-Wl,-rpath,$prefix/lib" -o "$scratch/federate"
CLASSPATH=$prefix/share/rti1516e/tovu1516e.jar "$scratch/federate" "$4"
