#!/usr/bin/env bash
# Installs the built library into a scratch prefix and builds a program
# against it twice: through the CMake package and through pkg-config.
set -euo pipefail
build=$1
source=$2
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
cmake --install "$build" --prefix "$prefix" >/dev/null
cmake -S "$source/tests/install/consumer" -B "$prefix/consumer" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$prefix/consumer" >/dev/null
LD_LIBRARY_PATH="$prefix/lib:${LD_LIBRARY_PATH:-}" "$prefix/consumer/consumer"
libdir=$(find "$prefix" -name corvane.pc -printf '%h\n' | head -n 1)
flags=$(PKG_CONFIG_PATH="$libdir" pkg-config --cflags --libs corvane)
# shellcheck disable=SC2086
c++ -std=c++20 "$source/tests/install/consumer/consumer.cc" -o "$prefix/consumer-pc" $flags
LD_LIBRARY_PATH="$(dirname "$libdir"):${LD_LIBRARY_PATH:-}" "$prefix/consumer-pc"
echo "installed package and pkg-config file work"
