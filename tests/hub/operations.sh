#!/usr/bin/env bash
# A hub as whoever runs it meets it: what it and its federates say when something is wrong, and who notices what when
# processes are killed or stopped. operations.sh HUB PLAYER FOM
set -euo pipefail
hub=$1 player=$2 fom=$3
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source-path=SCRIPTDIR
. "$here/players.sh"

echo "--- the command line"
openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -days 2 -keyout hub.key -out hub.pem \
  -subj /CN=hub -addext subjectAltName=IP:127.0.0.1 2>/dev/null
openssl req -x509 -newkey rsa:2048 -nodes -keyout other.key -out other.pem -subj /CN=other 2>/dev/null
start plain --connections 20 --queue-limit 8 --lost-after 0
plain=$address
while read -r expected options; do
  # shellcheck disable=SC2086 # several options are several words
  status=0 && timeout 20 "$hub" $options >refused.out 2>refused.err || status=$?
  if [ $status != 2 ] || [ "$(wc -l <refused.err)" != 1 ] || ! grep -q "${expected//_/ }" refused.err; then
    fail "$options"
  fi
done <<END
cannot_listen_on_$plain --listen $plain
unknown_option_'--nonsense' --nonsense
no-such-file --certificate no-such-file --key hub.key
not_that_of_the_certificate --certificate hub.pem --key other.key
no-such-file --certificate hub.pem --key hub.key --client-ca no-such-file
needs_its_key --certificate hub.pem
only_with_TLS --listen 0.0.0.0:0
END

echo "--- what is no hub, or one that does not let the federate in"
start secured --certificate hub.pem --key hub.key --client-ca hub.pem
secured=$address
start closed
nobody=$address
end closed INT
start silent
silent=$address
kill -STOP "${pid[silent]}"
play guest
while read -r designator expected; do
  renew guest
  say guest "connect $designator"
  within 10 guest.out "^failed connect .*$expected"
done <<END
hub=$nobody The hub at $nobody cannot be used: nobody listens there
hub=$silent $silent cannot be used: it did not answer within
hub=$plain;ca=hub.pem $plain cannot be used: it does not speak TLS
hub=$secured $secured cannot be used: .*give the ca
hub=$secured;ca=hub.pem $secured cannot be used: it does not accept this federate's certificate
hub=$plain;bar=2 'bar=2' is no setting
END
tell guest "connect hub=$secured;ca=hub.pem;certificate=hub.pem;key=hub.key" disconnect
end secured TERM

echo "--- a federate's process is killed"
play ada
play ben
tell ada "connect hub=$plain" "create $fom" "join ada" constrain
tell ben "connect hub=$plain" "join ben" regulate person
within 10 ada.out '< discover'
tell ada "advance 10"
sleep 0.3
! grep -q '< grant' ada.out || fail "granted although ben may still send"
tell ada "save now"
within 10 ben.out '< save'
kill -KILL "${pid[ben]}"
within 10 ada.out '< lost ben: (its connection is closed|Connection reset)'
within 10 ada.out '< notSaved'
within 10 ada.out '< remove'
within 10 ada.out '< grant'

echo "--- one does not read; others do not notice"
play idle
tell idle "connect hub=$plain" "join idle"
kill -STOP "${pid[idle]}"
tell ada "flood 1000"
# How much the system's own buffers hold decides which of the two limits comes first.
within 30 plain.err "lost .*idle.* at .*: its (process does not read|program takes no callbacks): 8 MB wait"
kill -KILL "${pid[idle]}"
tell ada "greet 10"

echo "--- clients that are no federates"
port=${plain##*:}
connect() { exec {client}<>"/dev/tcp/127.0.0.1/$port"; }
connect && quiet=$client
connect && dribbling=$client
(while printf '\0' >&"$dribbling" && sleep 4; do :; done 2>/dev/null) &
pid[dribbling]=$!
"$here/frames.py" "$plain" 3 "$player" "$fom" || fail "the fuzzer"
for each in "$quiet" "$dribbling"; do
  timeout 20 cat <&"$each" >/dev/null || fail "a connection that says nothing stays"
  exec {each}>&-
done
many=()
for ((tries = 0; tries < 10; ++tries)); do # connections that have just ended may still leave room for some
  for ((i = 0; i < 20; ++i)); do connect && many+=("$client"); done
  renew guest
  attempt guest "connect hub=$plain" || ! grep -q "there are 20 connections already" guest.out || break
  tell guest disconnect
done
[ $tries -lt 10 ] || fail "more than 20 connections"
for client in "${many[@]}"; do exec {client}>&-; done
tell ada "greet 10"

echo "--- the hub ends, in order and otherwise"
end plain TERM
within 10 ada.out '< connectionLost .*the hub was shut down'
for how in KILL STOP; do
  start second --listen "$plain" --lost-after 2 # in the place of the one before
  renew ada
  tell ada "connect hub=$plain" "create $fom" "join ada" person "evoke 0"
  kill -$how "${pid[second]}"
  [ $how = KILL ] || say ada "flood 10000" # waits in a service, with all that the line takes on its way
  within 10 ada.out '< connectionLost'
  [ $how = KILL ] || within 10 ada.out '^failed flood'
  say ada "greet 1"
  within 10 ada.out '^failed greet .*is lost'
  tell ada "evoke 0.1"
  [ "$(grep -c connectionLost ada.out)" = 1 ] || fail "lost more than once"
done

echo "--- a federate's process stands still"
start third --lost-after 2
play eve
renew ada
tell ada "connect hub=$address" "create $fom" "join ada"
tell eve "connect hub=$address" "join eve" person
within 10 ada.out '< discover'
kill -STOP "${pid[eve]}"
within 10 ada.out '< remove'
kill -CONT "${pid[eve]}"
within 10 eve.out '< connectionLost .*silent'
echo "--- all holds"
