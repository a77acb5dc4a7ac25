#!/usr/bin/env bash
# Installs what is missing, builds, starts the sandbox server, makes the demo
# database corvane_demo with the schema and some sample rows and the attachment
# database corvane_demo_pic beside it, and runs the demo client against them.
# With CORVANE_DEMO_CLUSTER=1 it does the same on the three-node Galera
# cluster of scripts/cluster.sh, the connection text naming all three nodes.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"

scripts/install-deps.sh
scripts/build.sh
if [ "${CORVANE_DEMO_CLUSTER:-}" = 1 ]; then
  scripts/cluster.sh start
  client() { scripts/cluster.sh client 1 "$@"; }
  text=$(scripts/cluster.sh text corvane_demo)
else
  CORVANE_SANDBOX_FAST= scripts/sandbox.sh start
  client() { scripts/sandbox.sh client "$@"; }
  text="SERVER=127.0.0.1;PORT=${CORVANE_SANDBOX_PORT:-3306};DATABASE=corvane_demo;UID=corvane;PWD=corvane"
fi
client -e "DROP DATABASE IF EXISTS corvane_demo; CREATE DATABASE corvane_demo"
client corvane_demo < schema/corvane.sql
for f in examples/sample*.sql; do client corvane_demo < "$f"; done
# The attachment database beside it: the business database's name with "_pic".
client -e "DROP DATABASE IF EXISTS corvane_demo_pic; CREATE DATABASE corvane_demo_pic"
client corvane_demo_pic < schema/corvane_pic.sql
build=${CORVANE_BUILD:-$root/build}
CORVANE_CONNECTION="$text" "$build/examples/corvane_demo" </dev/null
