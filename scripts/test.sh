#!/usr/bin/env bash
# Installs what is missing, builds, starts the sandbox server and runs the
# whole test suite. With --sanitize the build is made with AddressSanitizer
# and UBSan into build-asan/. Further arguments go to ctest (e.g. -LE faults
# leaves out the fault-injection tests, -L faults runs only them).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"

scripts/install-deps.sh
extra=()
# Continuous integration keeps the build free of warnings.
[ -z "${CI:-}" ] || extra+=(-DCORVANE_WERROR=ON)
if [ "${1:-}" = "--sanitize" ]; then
  shift
  export CORVANE_BUILD=$root/build-asan
  extra+=(-DCORVANE_SANITIZE=ON)
  export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
  export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
fi
build=${CORVANE_BUILD:-$root/build}
scripts/build.sh "${extra[@]}"
# The suite makes and drops a database per test: it asks for the fast server.
CORVANE_SANDBOX_FAST=1 scripts/sandbox.sh start
ctest --test-dir "$build" --output-on-failure -j"$(nproc)" "$@"
