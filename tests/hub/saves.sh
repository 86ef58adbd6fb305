#!/usr/bin/env bash
# Saves that outlive their process: what they keep, which are refused, and what is left when a hub is killed while it
# writes some. saves.sh HUB PLAYER FOM KILLS
set -euo pipefail
hub=$1 player=$2 fom=$3 kills=$4
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source-path=SCRIPTDIR
. "$here/players.sh"

# meet WHERE FOM: ada and ben join a new federation.
meet() {
  for each in ada ben; do
    until renew "$each" && attempt "$each" "connect $1"; do :; done # a busy machine may keep it from connecting in time
  done
  tell ada "create $2" "join ada"
  tell ben "join ben"
}
# restore FEDERATE LABEL TIME: and it is that time again.
restore() {
  renew "$1"
  tell "$1" "restore $2"
  within 20 "$1.out" '< (restored|notRestorable)'
  ! grep -q '< notRestorable' "$1.out" || return 1
  tell "$1" time
  within 10 "$1.out" "^time .*<$3>"
}

echo "--- saved at one hub, restored at another"
start first --saves saves
play ada
play ben
tell ada answer
tell ben answer
meet "hub=$address" "$fom"
tell ben constrain
tell ada regulate person "later 3" "advance 7"
within 10 ben.out '< discover'
object=$(sed -n 's/^< discover //p' ben.out)
tell ben "knows $object"
handle=$(grep '^knows' ben.out)
tell ada "save noon"
within 10 ben.out '< saved'
end first TERM
within 10 ben.out '< connectionLost'
start second --saves saves
meet "hub=$address" "$fom"
tell ada person person
restore ada noon 7 || fail "noon is not restored"
within 10 ben.out '< restored'
renew ben
tell ben "knows $object" "advance 1000001"
grep -q "^$handle\$" ben.out || fail "the handle of $object has changed"
tell ada "advance 1000001" person
within 10 ben.out '< grant'
within 10 ben.out '< discover'
tell ben count
within 10 ben.out '^received 3'

echo "--- refused"
status=0 && "$hub" --listen 127.0.0.1:0 --saves saves 2>refused.err || status=$?
if [ $status != 2 ] || ! grep -q "saves cannot be written to 'saves': another process uses it" refused.err; then
  fail "one folder for two"
fi
tell ada "save ../../noon"
within 10 ada.out '< saved'
[ -e saves/Meeting/%002e%002e%002f%002e%002e%002fnoon.save ] || fail "a label leads to another folder"
for each in cut damaged older; do cp saves/Meeting/noon.save "saves/Meeting/$each.save"; done
truncate -s -9 saves/Meeting/cut.save
printf '!' | dd of=saves/Meeting/damaged.save bs=1 seek=5000 conv=notrunc status=none
printf '\0\0\0\0' | dd of=saves/Meeting/older.save bs=1 seek=8 conv=notrunc status=none
cp "$fom" saves/Meeting/foreign.save
while read -r label expected; do
  ! restore ada "$label" 7 || fail "$label is restored"
  within 10 second.err "cannot be restored from '$label': .*$expected"
done <<END
cut is damaged
damaged is damaged
older in version 0 of the format
foreign is no save
midnight there is no such save
END
mv saves/Meeting saves/Before
touch saves/Meeting
tell ada "save noon"
within 10 ada.out '< notSaved'
within 10 second.err "cannot be saved as 'noon': .*Meeting"
end second TERM
within 10 ada.out '< connectionLost'
within 10 ben.out '< connectionLost'
rm saves/Meeting
mv saves/Before saves/Meeting
start third --saves saves
sed 's/<version>1.0/<version>1.1/' "$fom" >other.xml
meet "hub=$address" "$PWD/other.xml"
! restore ada noon 7 || fail "restored with another FOM"
within 10 third.err "cannot be restored from 'noon': it needs the module .*Meeting.xml' where .*other.xml"
end third TERM

echo "--- in process, and from there to a hub"
alone() {
  renew alone
  tell alone answer "connect hub=$1" "create $fom" "join alone"
}
export TOVU1516_OPTION1=-Dtovu.saves=alone
: >alone.out
play alone
alone none
tell alone regulate "advance 5" "save noon"
within 10 alone.out '< saved'
kill -KILL "${pid[alone]}"
wait "${pid[alone]}" 2>/dev/null || true
play alone
alone none
restore alone noon 5 || fail "noon is not restored in process"
kill -KILL "${pid[alone]}"
wait "${pid[alone]}" 2>/dev/null || true
start fourth --saves alone
play alone
alone "$address"
restore alone noon 5 || fail "noon is not restored at the hub"
end fourth TERM

echo "--- killed $kills times"
first=1 whole=0
echo '< connectionLost' | tee ada.out >ben.out # of the third hub
mkdir kills
for ((round = 0;; ++round)); do
  within 10 ada.out '< connectionLost'
  within 10 ben.out '< connectionLost'
  last=$(sed -n 's/^< saved //p' ada.out | tail -n 1)
  last=${last:-$((first - 1))}
  echo "round $round: $((last - first + 1)) saves were reported, $(find kills -name '*.part' | wc -l) unfinished"
  start killed --saves kills
  ! compgen -G 'kills/*/*.part' || fail "something unfinished is left"
  meet "hub=$address" "$fom"
  for ((label = first; label <= last; ++label)); do
    restore ada $label $label || fail "$label was reported and is not restored"
  done
  if restore ada $((last + 1)) $((last + 1)); then
    whole=$((whole + 1))
  else
    within 10 killed.err "cannot be restored from '$((last + 1))': there is no such save"
    if ((last < first)); then
      tell ben constrain
      tell ada regulate person "later 40"
    fi
  fi
  ((round < kills)) || break
  rm -f kills/Meeting/*.save
  renew ada ben
  first=$((last + 2))
  tell ada "chain $first"
  ((RANDOM % 4 == 0)) || within 20 ada.out "< saved $((first + RANDOM % 3))\$"
  sleep "0.$(printf %03d $((RANDOM % 400)))"
  kill -KILL "${pid[killed]}"
  wait "${pid[killed]}" 2>/dev/null || true
done
echo "--- all holds; $whole saves were whole when they were not reported yet"
