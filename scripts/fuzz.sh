#!/usr/bin/env bash
# Fuzzes the text-to-number and text-to-date conversions, the connection-text
# parser and the profile reader with libFuzzer, under AddressSanitizer and
# UBSan, each for a bounded time (CORVANE_FUZZ_SECONDS, default 20). Built by
# clang++ into build-fuzz/; the seed corpus of each target is
# fuzz/<target>/corpus/ (kept in the repository); new inputs found go to
# build-fuzz/<target>/corpus/, not into the repository. A broken property
# aborts the fuzzer, which leaves the input in build-fuzz/<target>/.
#
#   scripts/fuzz.sh [target...]     targets: number date connection_text profile
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"

scripts/install-deps.sh
out=$root/build-fuzz
seconds=${CORVANE_FUZZ_SECONDS:-20}
cxx=${CORVANE_FUZZ_CXX:-clang++}
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(number date connection_text profile)

declare -A sources=(
  [number]="corvane/frame/text.cc corvane/frame/date.cc"
  [date]="corvane/frame/text.cc corvane/frame/date.cc"
  [connection_text]="corvane/frame/internal/connection_text.cc"
  [profile]="corvane/frame/internal/profile.cc corvane/frame/host.cc"
)
flags=(-std=c++20 -g -O1 -fno-omit-frame-pointer -fsanitize=fuzzer,address,undefined
       -fno-sanitize-recover=undefined -Wall -Wextra -Werror -I"$root")

# The profile fuzzer writes its file several times per input: in memory.
shm=/tmp
[ ! -d /dev/shm ] || shm=/dev/shm
export CORVANE_FUZZ_PROFILE_FILE=$shm/corvane-fuzz-$$.ini
trap 'rm -f "$CORVANE_FUZZ_PROFILE_FILE"' EXIT
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
for t in "${targets[@]}"; do
  [ -n "${sources[$t]:-}" ] || { echo "fuzz: no target $t" >&2; exit 2; }
  mkdir -p "$out/$t/corpus"
  # shellcheck disable=SC2086
  "$cxx" "${flags[@]}" -o "$out/$t/fuzz_$t" "fuzz/$t/fuzz.cc" ${sources[$t]} -ldl
  echo "fuzz: $t for ${seconds}s"
  status=0
  (cd "$out/$t" && "./fuzz_$t" -max_total_time="$seconds" -max_len=4096 -timeout=10 \
     -rss_limit_mb=2048 -print_final_stats=1 corpus "$root/fuzz/$t/corpus") >"$out/$t/log" 2>&1 ||
    status=$?
  grep -E '^(stat::number_of_executed_units|stat::new_units_added)' "$out/$t/log" || true
  if [ "$status" -ne 0 ]; then
    tail -n 60 "$out/$t/log" >&2
    echo "fuzz: $t failed; the input is in $out/$t" >&2
    exit 1
  fi
done
echo "fuzz: all targets passed"
