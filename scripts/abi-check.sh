#!/usr/bin/env bash
# Checks the symbols that libcorvane.so exports against the list kept for its
# SONAME in abi/<soname>.symbols. A symbol that disappeared, or whose kind or
# size changed, fails the check: that needs a new SONAME major (and a new
# list). A new symbol is reported and passes: a minor release may add to the
# interface. An exported C++ symbol outside namespace corvane, or in an
# internal namespace, fails too: only the public interface is exported.
#
# Usage: scripts/abi-check.sh [--update] [--list FILE] [LIBRARY]
#   LIBRARY   the built library (default build/libcorvane.so)
#   --list    compare with FILE instead of abi/<soname>.symbols
#   --update  write the library's list to the list file instead of comparing
#
# A list has one exported symbol a line, sorted: the mangled name, its kind
# (FUNC, OBJECT, TLS, IFUNC) and for data its size in bytes.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)

update=""
list=""
lib=""
while [ $# -gt 0 ]; do
  case "$1" in
    --update) update=yes ;;
    --list) list=$2; shift ;;
    -*) echo "abi-check: unknown option $1" >&2; exit 2 ;;
    *) lib=$1 ;;
  esac
  shift
done
lib=${lib:-$root/build/libcorvane.so}
[ -e "$lib" ] || { echo "abi-check: no library at $lib" >&2; exit 2; }

soname=$(readelf -d "$lib" | sed -n 's/.*(SONAME).*\[\(.*\)\]/\1/p')
[ -n "$soname" ] || { echo "abi-check: $lib has no SONAME" >&2; exit 1; }
list=${list:-$root/abi/$soname.symbols}

# The defined dynamic symbols: name, kind, size of data.
exported() {
  readelf -W --dyn-syms "$1" | awk '
    $1 ~ /^[0-9]+:$/ && $7 != "UND" && ($5 == "GLOBAL" || $5 == "WEAK" || $5 == "UNIQUE") {
      name = $8; sub(/@.*/, "", name)
      if ($4 == "FUNC" || $4 == "IFUNC") print name, $4
      else if ($4 == "OBJECT" || $4 == "TLS") print name, $4, $3
    }' | LC_ALL=C sort -u
}

current=$(mktemp)
trap 'rm -f "$current"' EXIT
exported "$lib" >"$current"

# Only the public interface: C++ symbols of namespace corvane outside its
# internal parts (C symbols are the boundary's own functions).
strays=$(cut -d' ' -f1 "$current" | grep '^_Z' | c++filt |
         sed -E 's/^(typeinfo name for|typeinfo for|vtable for|VTT for|guard variable for|(non-)?virtual thunk to) //' |
         grep -vE '^corvane::' || true)
internal=$(cut -d' ' -f1 "$current" | grep '^_Z' | c++filt | grep -E '::internal::|\(anonymous namespace\)' || true)
if [ -n "$strays$internal" ]; then
  echo "abi-check: $soname exports what is not its public interface:" >&2
  printf '%s\n' "$strays" "$internal" | sed '/^$/d; s/^/  /' >&2
  exit 1
fi

if [ -n "$update" ]; then
  mkdir -p "$(dirname "$list")"
  cp "$current" "$list"
  echo "abi-check: wrote $(wc -l <"$list") symbols of $soname to ${list#"$root"/}"
  exit 0
fi

if [ ! -e "$list" ]; then
  echo "abi-check: no symbol list for $soname (${list#"$root"/})." >&2
  echo "  A new SONAME major starts a new list: scripts/abi-check.sh --update" >&2
  exit 1
fi

# Lines of the kept list that the library no longer has as they stand, and
# lines the library has that the list does not.
gone=$(LC_ALL=C comm -23 "$list" "$current")
new=$(LC_ALL=C comm -13 "$list" "$current")
gone_names=$(printf '%s\n' "$gone" | sed '/^$/d' | cut -d' ' -f1)
new_names=$(printf '%s\n' "$new" | sed '/^$/d' | cut -d' ' -f1)
changed=$(LC_ALL=C comm -12 <(printf '%s\n' "$gone_names" | sort -u) <(printf '%s\n' "$new_names" | sort -u) | sed '/^$/d')
removed=$(LC_ALL=C comm -23 <(printf '%s\n' "$gone_names" | sort -u) <(printf '%s\n' "$changed") | sed '/^$/d')
added=$(LC_ALL=C comm -23 <(printf '%s\n' "$new_names" | sort -u) <(printf '%s\n' "$changed") | sed '/^$/d')

show() {  # heading, names, the list they are described from
  [ -n "$2" ] || return 0
  echo "$1 ($(printf '%s\n' "$2" | wc -l)):"
  printf '%s\n' "$2" | while read -r name; do
    printf '  %s  (%s)\n' "$(printf '%s' "$name" | c++filt)" "$(grep -m1 "^$name " "$3" | cut -d' ' -f2-)"
  done
}

status=0
if [ -n "$removed$changed" ]; then
  status=1
  {
    echo "abi-check: $soname breaks its binary interface against ${list#"$root"/}:"
    show "removed" "$removed" "$list"
    if [ -n "$changed" ]; then
      echo "changed ($(printf '%s\n' "$changed" | wc -l)):"
      printf '%s\n' "$changed" | while read -r name; do
        printf '  %s  was %s, is %s\n' "$(printf '%s' "$name" | c++filt)" \
          "$(grep -m1 "^$name " "$list" | cut -d' ' -f2-)" "$(grep -m1 "^$name " "$current" | cut -d' ' -f2-)"
      done
    fi
    echo "Removing or changing a symbol needs a new SONAME major (the project's major version) and its own list."
  } >&2
fi
if [ -n "$added" ]; then
  show "abi-check: minor addition, new symbols" "$added" "$current"
  echo "  (record them with scripts/abi-check.sh --update)"
fi
[ "$status" -ne 0 ] || echo "abi-check: $soname keeps the $(wc -l <"$list") symbols of ${list#"$root"/}"
exit "$status"
