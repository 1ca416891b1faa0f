#!/usr/bin/env bash
# The install as a C++ user meets it: the build is installed into a fresh
# prefix; the installed wrlload runs with no environment set; the consumer
# project is built against the install through find_package and through
# pkg-config, and each build runs.
# Arguments: BUILD_DIR CONSUMER_DIR LIBDIR CXX [FLAGS], FLAGS being what
# the build's own code was compiled and linked with (its sanitizers).
set -euo pipefail
build=$1 consumer=$2 libdir=$3 cxx=$4 flags=${5:-}

prefix=$(mktemp -d) work=$(mktemp -d)
trap 'rm -rf "$prefix" "$work"' EXIT
unset ZNBUILTINS LD_LIBRARY_PATH OPTPATH PKG_CONFIG_PATH
step() { echo "== $*"; }

step "install into $prefix"
cmake --install "$build" --prefix "$prefix" > "$work/install.log"
world="$prefix/share/wrlLoader/examples/hello.wrl"

step "the installed wrlload finds its libraries and its Node Support file"
"$prefix/bin/wrlload" "$world" > "$work/tree.txt" 2> "$work/reports.txt"
if grep -q "Unknown node type" "$work/reports.txt"; then cat "$work/reports.txt"; exit 1; fi
grep -q "opRep" "$work/tree.txt"

step "the consumer through find_package"
cmake -S "$consumer" -B "$work/by-cmake" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_COMPILER="$cxx" \
  -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_EXE_LINKER_FLAGS="$flags" > "$work/configure.log"
cmake --build "$work/by-cmake" > "$work/build.log"
"$work/by-cmake/consumer" "$world"

step "the consumer through pkg-config"
export PKG_CONFIG_PATH="$prefix/$libdir/pkgconfig"
# shellcheck disable=SC2046,SC2086  # the flags are lists of words
"$cxx" -std=c++17 $flags "$consumer/consumer.cpp" -o "$work/by-pkg-config" $(pkg-config --cflags --libs wrlLoader) \
  -Wl,-rpath,"$(pkg-config --variable=libdir wrlLoader)"
"$work/by-pkg-config" "$world"
echo "== the install is consumable"
