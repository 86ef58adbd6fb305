#!/usr/bin/env bash
# Makes common mistakes and looks up what is printed in the page that is to help: each line must stand there.
# mistakes.sh PAGE.md PREFIX FOM-MODULE
set -euo pipefail
page=$(realpath "$1") prefix=$2 fom_module=$3
here=$(cd "$(dirname "$0")" && pwd)
scratch=$(realpath "$(mktemp -d)")
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"
unset LD_LIBRARY_PATH CLASSPATH
c++ -std=c++17 "-I$prefix/include" "$here/mistakes.cpp" "-L$prefix/lib" -lrti1516e -lfedtime1516e \
  "-Wl,-rpath,$prefix/lib" -o mistakes
jar=$prefix/share/rti1516e/tovu1516e.jar
failures=0

# The page is written for one place of installation, one folder to work in, the usual patience and one state of the source.
as_on_page() {
  sed -e "s|$prefix/|/opt/rti1516e/|g" -e "s|$scratch|/home/you/room|g" -e '/Aborted/d' \
    -e 's|evoked none for 1 s|evoked none for 10 s|' -e 's|\(RTIambassadorC, line\) [0-9]*|\1 107|'
}

mistake() { # CLASSPATH FOM-MODULE STEP...: something is printed, and each line of it is on the page
  local lines
  lines=$({ env ${1:+"CLASSPATH=$1"} "TOVU1516_OPTION1=${option:--Dtovu.local.evokeReminder=1}" ./mistakes "${@:2}" || true; } 2>&1 |
    as_on_page | awk '!seen[$0]++') # a failed setup is printed and thrown; the federate prints what is thrown
  while IFS= read -r line; do
    if [ -z "$line" ] || ! grep -qxF -e "$line" "$page"; then
      printf 'Not on the page, but printed by %s:\n   %s\n' "$*" "$line" >&2
      failures=$((failures + 1))
    fi
  done <<<"$lines"
}

mkdir fom jars older
echo 'The room has four walls.' | tee notes.txt >other.jar
echo '<html><body/></html>' >page.xml
cp "$jar" jars
# In front of the core stand its classes with one service under another name.
(cd older && cmake -E tar xf "$jar" && grep -rl retract_MRH . | xargs sed -i 's/retract_MRH/retract_MHR/')

for class_path in "" "$prefix/tovu1516e.jar" other.jar jars 'jars/*' "older:$jar"; do
  mistake "$class_path" "$fom_module" start
done
option=-Xmx1 mistake "$jar" "$fom_module" start
for module in rom.xml fom notes.txt page.xml; do
  mistake "$jar" $module start connect create:Room
done
mistake "$jar" "$fom_module" start create:Room
joined=(start connect create:Room join:Room)
for steps in class:Thermometr class:person "resign join:Rome" "resign class:Person" register \
  "publish register start connect create:Hall join:Hall publish register delete" "publish register resign" \
  advance query "point:ready wait" "point:ready evoke"; do
  # shellcheck disable=SC2086 # steps are words
  mistake "$jar" "$fom_module" "${joined[@]}" $steps
done

if [ "$failures" -ne 0 ]; then
  exit 1
fi
echo "Every message is on the page"
