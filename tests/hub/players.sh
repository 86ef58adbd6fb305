# shellcheck shell=bash disable=SC2034,SC2154,SC2164 # the script has hub and player, the address, and -e
# For scripts about a hub and federates in processes of their own: in a scratch folder, which goes with the processes.
cd "$(mktemp -d)"
declare -A pid to
trap 'kill -KILL "${pid[@]}" 2>/dev/null || true; wait 2>/dev/null || true; rm -rf "$PWD"' EXIT

fail() {
  echo "FAILED: $*" >&2
  tail -n 20 ./*.out ./*.err >&2
  exit 1
}

# within SECONDS FILE PATTERN: waits until the file has such a line, and says how long that took. The seconds leave room
# for a busy machine: what is printed tells how quick it was.
within() {
  local begin=${EPOCHREALTIME/./}
  until grep -qE -- "$3" "$2"; do
    ((${EPOCHREALTIME/./} - begin < $1 * 1000000)) || fail "$2 has no '$3' within $1 s"
    sleep 0.02
  done
  echo "$2: '$3' after $(((${EPOCHREALTIME/./} - begin) / 1000)) ms"
}

# start NAME [OPTION]...: a hub; $address is where it listens.
start() {
  local name=$1
  : >"$name.out"
  env --default-signal=INT "$hub" --listen 127.0.0.1:0 "${@:2}" >"$name.out" 2>"$name.err" &
  pid[$name]=$!
  within 30 "$name.out" '^listening on '
  address=$(sed -n 's/^listening on //p' "$name.out")
}

# end NAME SIGNAL: the status is that of an orderly end.
end() {
  kill "-$2" "${pid[$1]}"
  wait "${pid[$1]}" || fail "$1 ends with status $? at $2"
  unset "pid[$1]"
}

# play NAME: a federate. attempt NAME LINE: has it do something, and tells whether it succeeds. tell NAME LINE...: it does.
play() {
  rm -f "$1.in"
  mkfifo "$1.in"
  "$player" <"$1.in" >>"$1.out" 2>"$1.err" &
  pid[$1]=$!
  local opened
  exec {opened}>"$1.in"
  to[$1]=$opened
}
say() { echo "$2" >&"${to[$1]}"; }
attempt() {
  say "$1" "$2"
  within 30 "$1.out" "^(done|failed) ${2//./\\.}" >/dev/null
  grep -q "^done ${2//./\\.}" "$1.out"
}
tell() {
  local line
  for line in "${@:2}"; do attempt "$1" "$line" || fail "$1: $line"; done
}
renew() { for each in "$@"; do : >"$each.out"; done; }
