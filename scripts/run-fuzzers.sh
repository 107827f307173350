#!/bin/sh
# Builds the fuzzers and runs each for some seconds over its seeds.
#
#   scripts/run-fuzzers.sh [SECONDS]      (default: 60)
set -eu
cd "$(dirname "$0")/.."
seconds=${1:-60}

cmake --preset fuzz >/dev/null
cmake --build --preset fuzz -j "$(nproc 2>/dev/null || echo 2)"
for fuzzer in build/fuzz/fuzz/fuzz_*; do
    [ -x "$fuzzer" ] && [ -f "$fuzzer" ] || continue
    name=$(basename "$fuzzer")
    corpus=build/fuzz/corpus/$name
    mkdir -p "$corpus"
    echo "$name: $seconds s"
    "$fuzzer" -max_total_time="$seconds" -max_len=65536 -rss_limit_mb=1024 -verbosity=0 \
        -artifact_prefix="build/fuzz/" "$corpus" "fuzz/seeds/$name"
done
