#!/bin/sh
# Runs all tests: the checks of format and includes, a short run of each fuzzer, the tests under the
# address and undefined-behaviour sanitizers, all of them as released, and those of Windows under
# Wine; then the packages of both systems, made and tried.
#
#   scripts/test.sh
set -eu
cd "$(dirname "$0")/.."
jobs=$(nproc 2>/dev/null || echo 2)

scripts/install-dependencies.sh test

# What was compiled before, in whatever folder, is not compiled again; it is kept in the user's cache
# folder. Precompiled headers are told by their content.
if [ -z "${CMAKE_CXX_COMPILER_LAUNCHER:-}" ]; then
    export CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache
    export CCACHE_BASEDIR="$PWD" CCACHE_NOHASHDIR=1
    export CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
fi

scripts/check-format.sh
scripts/check-includes.py

# The same inputs each time: what fails is then a change's doing. Others are found by longer runs.
scripts/run-fuzzers.sh "${NORVO_FUZZ_SECONDS:-5}" 1

for preset in asan release windows-x64 windows-x86; do
    cmake --preset "$preset" >/dev/null
    cmake --build --preset "$preset" -j "$jobs"
    # Programs under Wine wait for its server more than for a processor.
    case $preset in
    windows-*) ctest --preset "$preset" -j $((jobs * 2)) ;;
    *) ctest --preset "$preset" -j "$jobs" ;;
    esac
done

scripts/package-windows.sh
scripts/package-debian.sh
