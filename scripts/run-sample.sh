#!/bin/sh
# Builds the program and runs its main job on a copy of the sample machine: finds the playlists,
# writes their neutral files, and shows what it made.
#
#   scripts/run-sample.sh [OUTPUT-FOLDER]      (default: out/sample-machine)
#
# The default folder is made anew each time; another one must not exist yet.
set -eu
project=$(CDPATH='' cd -- "$(dirname -- "$0")/.." && pwd)
default=$project/out/sample-machine
case ${1:-} in
  '') out=$default ;;
  /*) out=$1 ;;
  *) out=$(pwd)/$1 ;;
esac
if [ "$out" != "$default" ] && { [ -e "$out" ] || [ -L "$out" ]; }; then
  echo "run-sample.sh: $out exists and is left as it is. Name a folder that does not exist yet." >&2
  exit 2
fi
cd "$project"

# Runs the program, which ends with 1 when it left something out, as it does on the sample.
run_program() {
  status=0
  build/run/src/host/norvo-playlists "$@" || status=$?
  [ "$status" -le 1 ] || exit "$status"
}

scripts/install-dependencies.sh build
cmake -S . -B build/run -G Ninja -DCMAKE_BUILD_TYPE=Release -DNORVO_BUILD_TESTS=OFF >/dev/null
cmake --build build/run --target norvo-playlists

[ "$out" != "$default" ] || rm -rf "$out"
mkdir -p "$(dirname -- "$out")"
cp -R examples/sample-machine "$out"
chmod -R u+w "$out"

run_program collect --init --machine "$out"

kvs="$out/C/My Documents/Norvo Media/KVs"
echo
echo "The neutral files in $kvs:"
ls "$kvs"
echo
echo "One of them, Pop Hits.ini:"
cat "$kvs/Pop Hits.ini"
echo
echo "Its playlist, as the program reads it:"
run_program show --machine "$out" 'C:\Music\Pop Hits [2003]\Pop Hits.m3u'
