#!/usr/bin/env bash
# Compares what the libraries export with the lists beside this script: names are an ABI that federates are linked
# with, so that each that comes or goes has to be meant. And the natives among them have to stay where they are. The order
# of the virtual functions is an ABI as well; the program is one with a federate ambassador that has all callbacks.
#
#   compare.sh librti1516e.so libfedtime1516e.so PROGRAM          fails, and tells the differences
#   compare.sh librti1516e.so libfedtime1516e.so PROGRAM --update writes interface.txt and slots.txt anew
set -euo pipefail
export LC_ALL=C
here=$(cd "$(dirname "$0")" && pwd)

exported() {
  nm --dynamic --demangle --defined-only "$1" |
    sed -E -e 's/^[0-9a-f]+ . //' -e 's/std::__cxx11::basic_string<wchar_t, std::char_traits<wchar_t>, std::allocator<wchar_t> >/std::wstring/g' |
    sort -u
}

# The exception classes are all alike.
exceptions() {
  while read -r name; do
    cat <<END
rti1516e::$name::$name(rti1516e::$name const&)
rti1516e::$name::$name(rti1516e::$name&&)
rti1516e::$name::$name(std::wstring const&)
rti1516e::$name::operator=(rti1516e::$name const&)
rti1516e::$name::operator=(rti1516e::$name&&)
rti1516e::$name::what[abi:cxx11]() const
rti1516e::$name::~$name()
typeinfo for rti1516e::$name
typeinfo name for rti1516e::$name
vtable for rti1516e::$name
END
  done <"$here/exceptions.txt"
}

# Under their C++ names alone: the VM would find plain ones by itself, in whichever library has them first.
natives() {
  sed -n 's/^- `\(.*\)`$/Java_morva_tovu1516e_FederateAmbassadorC2007_\1(JNIEnv_*, _jobject*, _jbyteArray*)/p' \
    "$here/../../docs/methods.md"
}

slots() {
  "$here/slots.pl" "$1" '^_ZTVN(8rti1516e[0-9]+(HLA|DataElement|LogicalTime)|9tovu1516e.*RTIambassadorAdapter)'
  "$here/slots.pl" "$3" '^_ZTVN.*RecordingFederateE'
}

if [ "${4:-}" = --update ]; then
  slots "$@" >"$here/slots.txt"
  { exported "$1"; exported "$2"; } | sort -u | comm -23 - <({ exceptions; natives; } | sort) >"$here/interface.txt"
fi
if ! diff <({ exceptions; natives; cat "$here/interface.txt"; } | sort) <({ exported "$1"; exported "$2"; } | sort); then
  echo "Names with < are no longer exported, names with > are new." >&2
  exit 1
fi

if [ "$(uname -m)" = x86_64 ] && ! diff "$here/slots.txt" <(slots "$@"); then
  echo "Lines with < were the slots of virtual functions, lines with > are now." >&2
  exit 1
fi

if ! readelf --wide --dynamic "$1" | grep -q NODELETE; then
  echo "$1 can be unloaded, although the Java VM calls into it." >&2
  exit 1
fi
