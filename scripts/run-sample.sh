#!/bin/sh
# Builds the program and runs its main job on a copy of the sample machine: finds the playlists,
# writes their neutral files, and shows what it made.
#
#   scripts/run-sample.sh [OUTPUT-FOLDER]      (default: out/sample-machine)
set -eu
cd "$(dirname "$0")/.."
out=${1:-out/sample-machine}

scripts/install-dependencies.sh build
cmake -S . -B build/run -G Ninja -DCMAKE_BUILD_TYPE=Release -DNORVO_BUILD_TESTS=OFF >/dev/null
cmake --build build/run --target norvo-playlists

rm -rf "$out"
mkdir -p "$(dirname "$out")"
cp -R examples/sample-machine "$out"
chmod -R u+w "$out"

status=0
build/run/src/host/norvo-playlists collect --init --machine "$out" || status=$?
[ "$status" -le 1 ] || exit "$status"

kvs="$out/C/My Documents/Norvo Media/KVs"
echo
echo "The neutral files in $kvs:"
ls "$kvs"
echo
echo "One of them, Pop Hits.ini:"
cat "$kvs/Pop Hits.ini"
echo
echo "Its playlist, as the program reads it:"
build/run/src/host/norvo-playlists show --machine "$out" 'C:\Music\Pop Hits [2003]\Pop Hits.m3u' || true
