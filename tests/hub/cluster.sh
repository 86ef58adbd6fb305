#!/usr/bin/env bash
# Three hubs that are one service: who gets what when many ask at once, and what becomes of it when hubs are killed or
# frozen, or ZooKeeper is. cluster.sh HUB PLAYER FOM JAVA TAKEOVERS [SECONDS FROZEN [SECONDS UNTIL TAKEOVER]]
set -euo pipefail
hub=$1 player=$2 fom=$3 java=$4 takeovers=$5 frost=${6:-1} patience=${7:-5}
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source-path=SCRIPTDIR
. "$here/players.sh"
# shellcheck source-path=SCRIPTDIR
. "$here/hubs.sh"

zookeeper
for each in one two three; do join_cluster $each; done

# restore LABEL: and it is the time after which that is called.
restore() {
  tell ada "restore $1"
  within 20 ada.out '< restored'
  tell ada time
  within 10 ada.out "^time .*<$1>"
}
lose() {
  within 30 ada.out '< connectionLost'
  within 30 ben.out '< connectionLost'
}

echo "--- eight create the same federation at once, through whichever hub"
players=(ada ben cleo dan eve fay gus hal)
for each in "${players[@]}"; do
  play "$each"
  until attempt "$each" "connect hub=127.0.0.1:1,${at[$(shuf -n 1 -e one two three)]}"; do renew "$each"; done
done
for round in 1 2 3; do
  renew "${players[@]}"
  for each in "${players[@]}"; do say "$each" "create $fom"; done
  for each in "${players[@]}"; do within 30 "$each.out" '^(done|failed) create'; done
  [ "$(cat "${players[@]/%/.out}" | grep -c '^done create')" = 1 ] || fail "not just one has created it"
  [ "$(cat "${players[@]/%/.out}" | grep -c 'exists already')" = 7 ] || fail "not seven are told that it exists"
  [ $round = 3 ] || tell hal destroy
done
tell gus list
within 10 gus.out '^< executions Meeting$'
for each in "${players[@]}"; do tell "$each" disconnect; done

echo "--- $takeovers hubs are killed while federates save"
tell ada answer
tell ben answer
enter ada
enter ben
tell ada regulate person "later 20"
tell ben constrain
saved=0
for ((i = 0; i < takeovers; ++i)); do
  killed=$(holder)
  attempt ada "chain $((saved + 1))" || true # who is slow is taken for dead without being killed
  sleep "$((RANDOM % 2)).$((RANDOM % 900 + 100))"
  kill -KILL "${pid[$killed]}"
  back=$((RANDOM % 2))
  ((!back)) || join_cluster "$killed" # while others take over
  lose
  saved=$(sed -n 's/^< saved //p' ada.out | tail -n 1 | grep . || echo "$saved")
  begin=${EPOCHREALTIME/./}
  enter ada
  echo "$i: $killed is killed at save $saved, $(holder) has it, joined $(((${EPOCHREALTIME/./} - begin) / 1000)) ms after the loss"
  enter ben
  if ((saved == 0)); then
    tell ada regulate person "later 20"
    tell ben constrain
  else
    restore "$saved"
  fi
  ((back)) || join_cluster "$killed"
  [ "$(find saves/Meeting -mindepth 1 -maxdepth 1 | wc -l)" = 1 ] || fail "the federation has two folders"
  [ "$(sed -n 's/^federation Meeting is here.* epoch //p' one.err two.err three.err | sort | uniq -d)" = "" ] || fail "it is at two hubs"
done
for each in one two three; do
  case $each in "$(holder)" | "$killed") continue ;; esac
  "$here/browser.py" "${page[$each]}" '#hubs' '(?s)\bone\b.*three.*two' '#places' "Meeting\s+$(holder)\s.*(one|two|three)$" \
    '#events' "taken over\s*$(holder)\s*Meeting\s*from the lost hub" || [ $? = 77 ] || fail "the page does not show it"
done

echo "--- a hub is frozen"
attempt ada "chain $((saved + 1))" || true
sleep "0.$((RANDOM % 900 + 100))"
frozen=$(holder)
kill -STOP "${pid[$frozen]}"
say ada "save late"
for ((i = 0; i < 300; ++i)); do
  [ "$(holder)" = "$frozen" ] || break
  sleep 0.1
done
sleep "$frost"
((frost < 30)) || lose # while it stands still
kill -CONT "${pid[$frozen]}"
lose
within 20 "$frozen.err" '^left the cluster: the others took this hub for dead'
within 20 "$frozen.err" '^entered the cluster'
saved=$(sed -n 's/^< saved //p' ada.out | tail -n 1 | grep . || echo "$saved")
[ "$(find saves -name 'late*')" = "" ] || fail "the frozen hub has saved"
enter ada
enter ben
((saved == 0)) || restore "$saved" # which the frozen hub may have said only when it went on, but had done before
renew ada
tell ada "save soon"
within 20 ada.out '< saved'

echo "--- ZooKeeper is gone, and comes back"
kill -KILL "${pid[zookeeper]}"
renew ada cleo
tell ada "save without"
within 20 ada.out '< saved'
tell cleo "connect hub=${at[$(holder)]}" "join cleo" resign "federation New"
! attempt cleo "create $fom" || fail "created although nobody can know whether it exists"
grep -q 'failed create.*ZooKeeper, .* cannot be reached' cleo.out || fail "created, or not for that reason"
sleep $((patience + 2)) # more than a session may be silent
zookeeper
insist cleo "create $fom"
renew cleo
tell cleo list
within 10 cleo.out '^< executions .*Meeting'
tell ada "save after"
! grep -q connectionLost ada.out ben.out || fail "a federation was lost"
kill -KILL "${pid[ada]}" "${pid[ben]}"
tell cleo destroy "federation Meeting"
insist cleo destroy
! compgen -G "saves/Meeting/*/federation" || fail "what is destroyed would be taken over"
echo "--- all holds"
