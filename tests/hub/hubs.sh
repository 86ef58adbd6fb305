# shellcheck shell=bash disable=SC2034,SC2154 # the script says which java, patience and the like
# For scripts about several hubs that are one service, with players.sh: ZooKeeper, and hubs named one, two and three.

# ZooKeeper in a process of its own; it says nothing, so that its port is tried.
zookeeper() {
  "$java" -Xmx64m -Dzookeeper.forceSync=no -cp /usr/share/java/zookeeper.jar:/usr/share/java/slf4j-nop.jar \
    org.apache.zookeeper.server.quorum.QuorumPeerMain zoo.cfg >zookeeper.out 2>&1 &
  pid[zookeeper]=$!
  for ((i = 0; i < 300; ++i)); do
    ! (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null || return 0
    sleep 0.1
  done
  fail "ZooKeeper does not listen"
}
port=$((20000 + RANDOM % 10000))
printf '%s\n' tickTime=500 "dataDir=$PWD/zookeeper" "clientPort=$port" clientPortAddress=127.0.0.1 \
  admin.enableServer=false >zoo.cfg

declare -A at page
join_cluster() {
  start "$1" --cluster "127.0.0.1:$port/test" --name "$1" --takeover-after "$patience" --saves saves --web 127.0.0.1:0
  at[$1]=$address
  page[$1]=$(sed -n 's/^page at //p' "$1.out")
  all=$(IFS=, && echo "${at[*]}")
}

# holder: the hub that has the federation Meeting.
holder() { sed -sn 's/^federation Meeting is here.* epoch //;T;F;p' one.err two.err three.err | paste - - | sort -nk2 | tail -n 1 | sed 's/\..*//'; }

# insist NAME LINE...: until the last one succeeds; those before it may have done so already.
insist() {
  local begin=${EPOCHREALTIME/./} line
  renew "$1"
  until for line in "${@:2}"; do attempt "$1" "$line"; done; do
    ((${EPOCHREALTIME/./} - begin < 60000000)) || fail "$1: $line"
    renew "$1"
    sleep 0.1
  done
}

# enter NAME: joins as soon as the federation is there (again).
enter() { insist "$1" "connect hub=$all" "join $1"; }
