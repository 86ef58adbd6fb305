#!/usr/bin/env bash
# Makes the Debian packages, installs them into a fresh Debian 12 with all that they depend on, and builds and runs a
# federate there, by itself and at a hub. Needs root, libnetty-java, liblz4-java, debootstrap and a mirror (default:
# Debian's own), and some minutes.
set -euo pipefail
cd "$(dirname "$0")/.."
mirror=${1:-http://deb.debian.org/debian}

echo "== building"
cmake -S . -B build/packages -G Ninja -Wno-dev >/dev/null
cmake --build build/packages
(cd build/packages && cpack -G DEB)

root=$(mktemp -d)
cleanup() {
  umount "$root/proc" 2>/dev/null || true
  rm -rf --one-file-system "$root"
}
trap cleanup EXIT
echo "== a fresh Debian in $root"
debootstrap --variant=minbase bookworm "$root" "$mirror" >"$root.log" || { tail -20 "$root.log"; exit 1; }
rm "$root.log"
mount -t proc proc "$root/proc"
mkdir "$root/try"
cp build/packages/*.deb examples/meeting.cpp tests/hub/over-hub.sh tests/hub/players.sh examples/fom/Meeting.xml "$root/try"

echo "== installing"
chroot "$root" sh -c 'apt-get update -q && cd /try && DEBIAN_FRONTEND=noninteractive \
  apt-get install -q -y --no-install-recommends ./*.deb g++ pkg-config' >"$root/try/log" 2>&1 ||
  { tail -20 "$root/try/log"; exit 1; }

echo "== a federate"
chroot "$root" sh -ec 'cd /try
  g++ meeting.cpp -o federate -Werror -Wall -Wextra -Wpedantic $(pkg-config --cflags --libs rti1516e)
  CLASSPATH=$(pkg-config --variable=localcore_jar rti1516e) ./federate Meeting.xml'

echo "== a federate at a hub"
chroot "$root" sh -ec 'cd /try
  export CLASSPATH=$(pkg-config --variable=localcore_jar rti1516e)
  ./over-hub.sh rti1516e-hub ./federate Meeting.xml'
