#!/bin/sh
# Builds the fuzzers of fuzz/fuzzers.txt and runs them over their seeds, one for each processor at a
# time. What they find beyond the seeds gathers in build/fuzz/corpus; an input that fails is kept in
# build/fuzz and named. With a seed, and nothing gathered yet, each call tries the same inputs.
#
#   scripts/run-fuzzers.sh [SECONDS [SEED]]      each for so long (default: 60)
#   scripts/run-fuzzers.sh --runs N [NAME...]    so many runs of each, or of those that are named
set -eu
cd "$(dirname "$0")/.."
build=build/fuzz
jobs=$(nproc 2>/dev/null || echo 2)
# Freed memory that is kept back to tell its late use would look like a leak; a long history of each
# piece takes a third of the time.
export ASAN_OPTIONS=quarantine_size_mb=16:malloc_context_size=1

# run_one LIMIT NAME
run_one() {
  row=$(grep "^$2 " fuzz/fuzzers.txt) || { echo "$2 is not in fuzz/fuzzers.txt" >&2; return 1; }
  length=$(echo "$row" | cut -d' ' -f2)
  dictionary=$(echo "$row" | cut -d' ' -f3)
  fuzzer=fuzz_$2
  corpus=$build/corpus/$fuzzer
  log=$build/$fuzzer.log
  mkdir -p "$corpus"
  # shellcheck disable=SC2086
  set -- $1 -max_len="$length" -rss_limit_mb=1024 -entropic=0 -verbosity=0 -print_final_stats=1 \
    -artifact_prefix="$build/$fuzzer-" "$corpus" "fuzz/seeds/$fuzzer"
  [ "$dictionary" = - ] || set -- -dict="fuzz/dictionaries/$dictionary.dict" "$@"
  if ! "$build/fuzz/$fuzzer" "$@" >"$log" 2>&1; then
    cat "$log"
    return 1
  fi
  sed -n 's/^stat::number_of_executed_units: */runs: /p
          s/^stat::average_exec_per_sec: */a second: /p' "$log" |
    tr '\n' ' ' | sed "s/^/$fuzzer: /;s/ \$/\n/"
}

if [ "${1:-}" = --one ]; then
  run_one "$2" "$3"
  exit
fi

limit="-max_total_time=${1:-60}${2:+ -seed=$2}"
names=
if [ "${1:-}" = --runs ]; then
  limit=-runs=$2
  shift 2
  names=$*
fi

cmake --preset fuzz >/dev/null
cmake --build --preset fuzz -j "$jobs" --target fuzzers
[ -n "$names" ] || names=$(sed -n 's/^\([a-z][^ ]*\) .*/\1/p' fuzz/fuzzers.txt)
# shellcheck disable=SC2086
printf '%s\n' $names | xargs -P "$jobs" -n 1 "$0" --one "$limit"
