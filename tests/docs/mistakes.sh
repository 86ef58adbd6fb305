#!/usr/bin/env bash
# Makes common mistakes and looks up what is printed in the page that is to help: each line must stand there.
# mistakes.sh PAGE.md PREFIX FOM-MODULE
set -euo pipefail
page=$(realpath "$1") prefix=$2 fom_module=$3
here=$(cd "$(dirname "$0")" && pwd)
scratch=$(realpath "$(mktemp -d)")
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"
unset LD_LIBRARY_PATH
flags=(-std=c++17 "-I$prefix/include" "$here/mistakes.cpp" -lrti1516e -lfedtime1516e)
c++ "${flags[@]}" "-L$prefix/lib" -o without_rpath
c++ "${flags[@]}" "-L$prefix/lib" "-Wl,-rpath,$prefix/lib" -o mistakes
jar=$prefix/share/rti1516e/tovu1516e.jar
failures=0

# The page is written for one place of installation, one folder to work in, the usual patience and one state of the source.
as_on_page() {
  sed -e "s|$prefix/|/opt/rti1516e/|g" -e "s|$scratch/lib/|/opt/rti1516e/lib/|g" -e "s|$scratch|/home/you/room|g" \
    -e 's|evoked none for 1 s|evoked none for 10 s|' -e 's|\(RTIambassadorC, line\) [0-9]*|\1 107|' \
    -e 's|^\./[a-z_]*: ||' -e 's|^/usr/bin/ld: ||'
}

mistake() { # what to run; it prints something, and each line of it is on the page
  local lines
  lines=$("$@" 2>&1 | as_on_page)
  if [ -z "$lines" ]; then
    echo "Nothing is said about: $*" >&2
    failures=$((failures + 1))
  fi
  while IFS= read -r line; do
    if ! grep -qxF -e "$line" "$page"; then
      printf 'Not on the page, but printed by %s:\n   %s\n' "$*" "$line" >&2
      failures=$((failures + 1))
    fi
  done <<<"$lines"
}

# What the mistakes about FOM modules name.
mkdir fom
echo 'The room has four walls.' >notes.txt
echo '<html><body/></html>' >page.xml

run() { # CLASSPATH, MISTAKE: the program with this mistake; how it ends is no matter
  CLASSPATH=$1 TOVU1516_OPTION1=-Dtovu.local.evokeReminder=1 ./mistakes "$2" "$fom_module" || true
}

told_once() { # a failed setup is printed and thrown; the federate prints what is thrown
  "$@" 2>&1 | awk '!seen[$0]++'
}

without_class_path() { env -u CLASSPATH ./mistakes none "$fom_module" || true; }
with_bad_option() { CLASSPATH=$jar TOVU1516_OPTION1=-Xmx1 ./mistakes none "$fom_module" || true; }
with_two_versions() {
  { CLASSPATH=older:$jar ./mistakes none "$fom_module" || true; } 2>&1 | grep -v Aborted
}
asking_for_another_time() { run "$jar" "asks for a time of another class" 2>&1 | grep -v Aborted; }
without_java() { LD_LIBRARY_PATH=$scratch/lib ./without_rpath none "$fom_module" || true; }
linked_without_java() {
  { c++ "${flags[@]}" -L"$scratch/lib" -o nothing || true; } 2>&1 | grep -v 'collect2\|GetCreated' | sed 's|.*undefined|undefined|'
}

mistake told_once without_class_path
mistake told_once run "$prefix/tovu1516e.jar" none
cp notes.txt other.jar
mistake told_once run other.jar none
mkdir jars
cp "$jar" jars
mistake told_once run jars none
mistake told_once run 'jars/*' none
# In front of the core stand its classes with one service under another name.
mkdir older
(cd older && cmake -E tar xf "$jar" && grep -rl retract_MRH . | xargs sed -i 's/retract_MRH/retract_MHR/')
mistake with_two_versions
mistake with_bad_option
if ldd without_rpath | grep -q 'librti1516e.*not found'; then # or else the library is also where the loader looks
  mistake ./without_rpath none "$fom_module" || true # it cannot even start
fi
for mistake in "not connected" "not joined" "wrong FOM" "FOM is a folder" "FOM is no XML" "FOM is another XML" \
  "wrong name" "name not in full" "no such federation" "not published" "another federation's handle" \
  "resigns as owner" "time of another class" "never evokes" "throws in a callback"; do
  mistake run "$jar" "$mistake"
done
mistake asking_for_another_time

# A library whose Java runtime is gone.
mkdir lib
cp -a "$prefix"/lib/lib*.so* lib
cat >forget.cmake <<'END'
file(READ_ELF ${library} RUNPATH runpath)
string(REPLACE ";" ":" runpath "${runpath}")
file(RPATH_CHANGE FILE ${library} OLD_RPATH "${runpath}" NEW_RPATH "$ORIGIN")
END
cmake -D library="$(realpath lib/librti1516e.so)" -P forget.cmake >/dev/null 2>&1
mistake without_java
mistake linked_without_java

if [ "$failures" -ne 0 ]; then
  exit 1
fi
echo "Every message is on the page"
