#!/usr/bin/env bash
# The exported-symbol check judges a library against altered copies of its
# kept list: a symbol the list has and the library lacks fails, so does a
# symbol whose size changed, and a symbol the library has beyond the list is
# reported as a minor addition and passes.
set -euo pipefail
lib=$1
source=$2
check=$source/scripts/abi-check.sh
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
soname=$(readelf -d "$lib" | sed -n 's/.*(SONAME).*\[\(.*\)\]/\1/p')
kept=$source/abi/$soname.symbols
fail() { echo "FAILED: $*" >&2; exit 1; }

# The library as it is keeps its list.
"$check" "$lib" >"$work/out" 2>&1 || { cat "$work/out"; fail "the built library does not keep its list"; }
grep -q "keeps the" "$work/out" || fail "no verdict: $(cat "$work/out")"

# A symbol the list has and the library lacks: removed.
{ cat "$kept"; echo "_ZN7corvane18RemovedForThisTestEv FUNC"; } | LC_ALL=C sort >"$work/removed"
if "$check" --list "$work/removed" "$lib" >"$work/out" 2>&1; then fail "a removed symbol passed"; fi
grep -q "corvane::RemovedForThisTest()" "$work/out" || fail "the removed symbol is not named: $(cat "$work/out")"

# An object whose size changed: changed.
object=$(awk '$2 == "OBJECT" { print $1; exit }' "$kept")
[ -n "$object" ] || fail "the list has no data symbol"
awk -v o="$object" '$1 == o { $3 = $3 + 8 } { print }' "$kept" >"$work/changed"
if "$check" --list "$work/changed" "$lib" >"$work/out" 2>&1; then fail "a changed symbol passed"; fi
grep -q "changed (1)" "$work/out" || fail "the change is not reported: $(cat "$work/out")"

# A symbol the library has beyond the list: a minor addition, which passes.
function=$(awk '$2 == "FUNC" { print $1; exit }' "$kept")
grep -v "^$function " "$kept" >"$work/added"
"$check" --list "$work/added" "$lib" >"$work/out" 2>&1 || { cat "$work/out"; fail "an added symbol failed"; }
grep -q "minor addition, new symbols (1)" "$work/out" || fail "the addition is not reported: $(cat "$work/out")"
grep -qF "$(echo "$function" | c++filt)" "$work/out" || fail "the added symbol is not named"

# A SONAME without a list fails.
if "$check" --list "$work/none" "$lib" >"$work/out" 2>&1; then fail "a missing list passed"; fi
echo "abi check: kept list passes; removal, change, missing list fail; addition reported and passes"
