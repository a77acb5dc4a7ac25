#!/usr/bin/env bash
# Installs what is missing, builds, starts the sandbox server, makes the demo
# database corvane_demo with the schema and some sample rows, and runs the demo
# client against it.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"

scripts/install-deps.sh
scripts/build.sh
CORVANE_SANDBOX_FAST= scripts/sandbox.sh start
scripts/sandbox.sh client -e "DROP DATABASE IF EXISTS corvane_demo; CREATE DATABASE corvane_demo"
scripts/sandbox.sh client corvane_demo < schema/corvane.sql
for f in examples/sample*.sql; do scripts/sandbox.sh client corvane_demo < "$f"; done
build=${CORVANE_BUILD:-$root/build}
CORVANE_CONNECTION="SERVER=127.0.0.1;PORT=${CORVANE_SANDBOX_PORT:-3306};DATABASE=corvane_demo;UID=corvane;PWD=corvane" \
  "$build/examples/corvane_demo" </dev/null
