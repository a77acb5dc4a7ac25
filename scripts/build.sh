#!/usr/bin/env bash
# Configures and builds into build/ (or $CORVANE_BUILD). Extra arguments go to
# the CMake configure step.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${CORVANE_BUILD:-$root/build}
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=${CMAKE_BUILD_TYPE:-RelWithDebInfo} "$@" >/dev/null
cmake --build "$build" -j"$(nproc)"
