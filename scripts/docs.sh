#!/usr/bin/env bash
# Makes pages of the public headers, in build/docs/html. Fails if Doxygen has anything to complain of.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-tools.sh docs
mkdir -p build/docs
doxygen docs/Doxyfile
echo "See build/docs/html/index.html"
