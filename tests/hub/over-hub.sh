#!/usr/bin/env bash
# Runs a program whose federates meet at a hub that is there for it alone, or as many processes of it as
# SYSTEM_TESTS_SHARES says: over-hub.sh HUB PROGRAM [ARGUMENT]...
set -euo pipefail
hub=$1
there=$PWD
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source-path=SCRIPTDIR
. "$here/players.sh"

start alone
export TOVU1516_OPTION2=-Dtovu.hub=$address
shift
for ((share = 0; share < ${SYSTEM_TESTS_SHARES:-1}; ++share)); do
  (cd "$there" && SYSTEM_TESTS_SHARE=$share exec "$@") &
  pid[share$share]=$!
done
for ((share = 0; share < ${SYSTEM_TESTS_SHARES:-1}; ++share)); do wait "${pid[share$share]}"; done
