#!/usr/bin/env bash
# Three hubs that are one service, on this machine: two federates meet at one of them and save; it is killed, another
# one takes over, and they go on from there. cluster-demo.sh HUB PLAYER FOM JAVA
set -euo pipefail
hub=$1 player=$2 fom=$3 java=$4 patience=2
tests=$(cd "$(dirname "$0")/../tests/hub" && pwd)
# shellcheck source-path=SCRIPTDIR source=../tests/hub/players.sh
. "$tests/players.sh"
# shellcheck source-path=SCRIPTDIR source=../tests/hub/hubs.sh
. "$tests/hubs.sh"
quietly() { "$@" >/dev/null; }

echo "ZooKeeper and three hubs:"
quietly zookeeper
for each in one two three; do
  quietly join_cluster "$each"
  echo "   hub $each is at ${at[$each]}"
done
play ada
play ben
quietly tell ada "connect hub=$all" answer "create $fom" "join ada" regulate person "advance 7"
other=one
[ "$(holder)" != one ] || other=two
quietly tell ben "connect hub=${at[$other]}" answer "join ben"
quietly within 20 ada.out '< grant'
echo "ada has created the federation Meeting, and it is at hub $(holder); ben has joined through hub $other, which sent him there."
quietly tell ada "save noon"
quietly within 20 ada.out '< saved'
echo "They save at time 7: $(find saves -name '*.save')"
killed=$(holder)
kill -KILL "${pid[$killed]}"
wait "${pid[$killed]}" 2>/dev/null || true
begin=${EPOCHREALTIME/./}
quietly within 20 ada.out '< connectionLost'
quietly within 20 ben.out '< connectionLost'
echo "Hub $killed is killed. ada is told: $(sed -n 's/^< connectionLost //p' ada.out)"
quietly enter ada
echo "$(((${EPOCHREALTIME/./} - begin) / 1000)) ms later it is at hub $(holder), and ada has joined again. What that hub says:"
sed 's/^/   /' "$(holder).err"
quietly enter ben
quietly tell ada "restore noon"
quietly within 20 ada.out '< restored'
quietly tell ada time
echo "Restored: it is time $(sed -n 's/^time .*<\(.*\)>/\1/p' ada.out) again. $(find saves -name '*.save')"
