#!/usr/bin/env bash
# Builds the library and the multithreaded test with ThreadSanitizer into
# build-tsan/ and runs the test against the sandbox server (started if it is
# not running). Any race report fails the run.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"

scripts/install-deps.sh
build=$root/build-tsan
extra=()
[ -z "${CI:-}" ] || extra+=(-DCORVANE_WERROR=ON)
cmake -S . -B "$build" -DCORVANE_TSAN=ON -DCORVANE_BUILD_BENCH=OFF -DCORVANE_BUILD_EXAMPLES=OFF \
  "${extra[@]}" >/dev/null
cmake --build "$build" -j"$(nproc)" --target threads_tests
# The test makes and drops a database: it asks for the fast server.
CORVANE_SANDBOX_FAST=1 scripts/sandbox.sh start
TSAN_OPTIONS="halt_on_error=1:exitcode=66:second_deadlock_stack=1" "$build/tests/threads_tests"
