#!/usr/bin/env bash
# Installs what is missing, builds, starts the sandbox server, makes the demo
# database corvane_demo with the schema and some sample rows and the attachment
# database corvane_demo_pic beside it, and runs the demo client against them.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"

scripts/install-deps.sh
scripts/build.sh
CORVANE_SANDBOX_FAST= scripts/sandbox.sh start
scripts/sandbox.sh client -e "DROP DATABASE IF EXISTS corvane_demo; CREATE DATABASE corvane_demo"
scripts/sandbox.sh client corvane_demo < schema/corvane.sql
for f in examples/sample*.sql; do scripts/sandbox.sh client corvane_demo < "$f"; done
# The attachment database beside it: the business database's name with "_pic".
scripts/sandbox.sh client -e "DROP DATABASE IF EXISTS corvane_demo_pic; CREATE DATABASE corvane_demo_pic"
scripts/sandbox.sh client corvane_demo_pic < schema/corvane_pic.sql
build=${CORVANE_BUILD:-$root/build}
CORVANE_CONNECTION="SERVER=127.0.0.1;PORT=${CORVANE_SANDBOX_PORT:-3306};DATABASE=corvane_demo;UID=corvane;PWD=corvane" \
  "$build/examples/corvane_demo" </dev/null
