#!/usr/bin/env bash
# Builds the API reference from the public headers with Doxygen (Doxyfile at
# the top of the tree) into build/docs/html, or into DIR/html with
# scripts/docs.sh DIR. Any warning, an undocumented public member among them,
# fails the run.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
scripts/install-deps.sh
out=${1:-build/docs}
mkdir -p "$out"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! (cat Doxyfile; echo "OUTPUT_DIRECTORY = $out") | doxygen - >"$log" 2>&1; then
  cat "$log" >&2
  echo "docs: the reference has warnings (above)" >&2
  exit 1
fi
echo "docs: $out/html/index.html"
