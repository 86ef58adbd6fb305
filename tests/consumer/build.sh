#!/usr/bin/env bash
# Builds the federate beside this script against an installed tree in one of the ways that its author may choose, and
# runs it: build.sh plain|pkg-config PREFIX COMPILER DIALECT FOM-MODULE, or build.sh cmake PREFIX COMPILER FOM-MODULE.
# Nothing but the installed tree may be found, and so nothing else is in the environment.
set -euo pipefail
way=$1 prefix=$2 compiler=$3
fom_module=${*: -1}
source=$(cd "$(dirname "$0")" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"
unset CLASSPATH LD_LIBRARY_PATH CPATH LIBRARY_PATH PKG_CONFIG_PATH CXXFLAGS LDFLAGS

if [ "$way" = cmake ]; then
  cmake -S "$source/project" -B . -D CMAKE_CXX_COMPILER="$compiler" -D CMAKE_PREFIX_PATH="$prefix" \
    -D CMAKE_BUILD_TYPE=Debug -D FOM_MODULE="$fom_module" >configured || { cat configured; exit 1; }
  cmake --build .
  ctest --output-on-failure
  exit
fi

flags="-std=c++$4 -Werror -Wall -Wextra -Wpedantic"
case $way in
  plain)
    flags+=" -I$prefix/include -L$prefix/lib -lrti1516e -lfedtime1516e"
    jar=$prefix/share/rti1516e/tovu1516e.jar
    ;;
  pkg-config)
    export PKG_CONFIG_PATH=$prefix/lib/pkgconfig
    flags+=" $(pkg-config --cflags --libs rti1516e)"
    jar=$(pkg-config --variable=localcore_jar rti1516e)
    ;;
esac
# shellcheck disable=SC2086 # flags are words
"$compiler" "$source/federate.cpp" $flags -Wl,-rpath,"$prefix/lib" -o federate
CLASSPATH=$jar ./federate "$fom_module"
