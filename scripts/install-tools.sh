#!/usr/bin/env bash
# Installs what building and testing need and is missing, from Debian's packages, as root or through sudo. With
# the word test, lint, docs, coverage, bench or fuzz, also what the script of that name needs.
set -euo pipefail

# A command, or the path of a file, that tells that a package is there; and the package.
needs=(
  "g++ g++"
  "cmake cmake"
  "ninja ninja-build"
  "make make"
  "git git"
  "javac openjdk-17-jdk-headless"
  "/usr/share/java/netty-transport.jar libnetty-java"
  "/usr/share/java/lz4-java.jar liblz4-java"
  "/usr/share/java/curator-framework.jar libcurator-framework-java"
  "/usr/share/zookeeper/bin/zkServer.sh zookeeper"
  "/usr/include/gtest/gtest.h libgtest-dev"
  "pkg-config pkg-config"
  "dpkg-shlibdeps dpkg-dev"
  "file file"
)
wishes=()
case ${1:-} in
  test)
    wishes=("chromium chromium" "chromedriver chromium-driver"
      "/usr/lib/python3/dist-packages/selenium python3-selenium")
    ;;
  lint) needs+=("clang-format clang-format" "clang-tidy clang-tidy" "cppcheck cppcheck" "shellcheck shellcheck") ;;
  docs) needs+=("doxygen doxygen") ;;
  coverage) needs+=("gcovr gcovr") ;;
  bench)
    needs+=("/usr/include/benchmark/benchmark.h libbenchmark-dev"
      "/usr/include/google/protobuf/message.h libprotobuf-dev" "protoc protobuf-compiler"
      "/usr/include/capnp/message.h libcapnp-dev" "capnp capnproto"
      "/usr/include/flatbuffers/flatbuffers.h libflatbuffers-dev" "flatc flatbuffers-compiler" "openssl openssl"
      "/usr/bin/curl curl")
    ;;
  fuzz)
    needs+=("clang++ clang"
      "/usr/lib/llvm-14/lib/clang/14.0.6/lib/linux/libclang_rt.fuzzer-x86_64.a libclang-rt-14-dev")
    ;;
esac

# install NEED...: what of them is missing
install() {
  local missing=() need sign package
  for need in "$@"; do
    read -r sign package <<<"$need"
    case $sign in
      /*) [ -e "$sign" ] ;;
      *) command -v "$sign" >/dev/null ;;
    esac || missing+=("$package")
  done
  if [ ${#missing[@]} -eq 0 ]; then
    return
  fi
  echo "Installing: ${missing[*]}"
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "Please install these packages as root, then run this again: ${missing[*]}" >&2
      return 1
    fi
    as_root=(sudo)
  fi
  "${as_root[@]}" apt-get update -q &&
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "${missing[@]}"
}
install "${needs[@]}"
if [ ${#wishes[@]} -gt 0 ]; then
  install "${wishes[@]}" || echo "No browser: the test of the hub's page is left out"
fi
