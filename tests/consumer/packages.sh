#!/usr/bin/env bash
# Makes the Debian packages, installs them into a root of their own, and builds and runs a federate with what is there:
# packages.sh BUILD-FOLDER FOM-MODULE.
set -euo pipefail
build=$1 fom_module=$2
here=$(cd "$(dirname "$0")" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
packages=$scratch/packages root=$scratch/root

cpack --config "$build/CPackConfig.cmake" -G DEB -B "$packages" >"$scratch/log" 2>&1 || { cat "$scratch/log"; exit 1; }
cd "$packages"

depends() { # PACKAGE NEED: the package says that it needs that
  if ! dpkg-deb --field "$1"_*.deb Depends | grep -Eq "(^|, )$2( |,|\$)"; then
    echo "$1 should depend on $2, but its dependencies are: $(dpkg-deb --field "$1"_*.deb Depends)" >&2
    exit 1
  fi
}
depends librti1516e 'libc6 \(>= [0-9.]+\)'
depends librti1516e 'libstdc\+\+6 \(>= [0-9.]+\)'
depends librti1516e '(openjdk-[0-9]+|default)-jre-headless'
depends librti1516e-dev 'librti1516e \(= [0-9.]+\)'

if compgen -G 'rti1516e-hub_*.deb' >/dev/null; then
  depends rti1516e-hub 'tovu1516e-localcore \(= [0-9.]+\)'
  depends rti1516e-hub libnetty-java
  depends rti1516e-hub liblz4-java
fi

# The root has nothing of what the packages depend on, and no shell that could configure them: they are only unpacked,
# and the federate is run with what this machine has.
mkdir -p "$root"/var/lib/dpkg/{info,updates}
touch "$root"/var/lib/dpkg/{status,available}
export PATH=$PATH:/usr/sbin:/sbin
dpkg --root="$root" --log=/dev/null --force-depends,not-root --unpack ./*.deb >"$scratch/log" 2>&1 ||
  { cat "$scratch/log"; exit 1; }
dpkg-query --root="$root" --show
"$here/build.sh" "$root/usr" c++ 17 "$fom_module"
if [ -e "$root/usr/bin/rti1516e-hub" ]; then
  "$here/../hub/over-hub.sh" "$root/usr/bin/rti1516e-hub" "$here/build.sh" "$root/usr" c++ 17 "$fom_module"
fi
