#!/bin/sh
# Builds the program and runs its main job on copies of the sample machines: moves the playlists
# and songs of the old one to the new one, and shows and verifies what stands there then.
#
#   scripts/run-sample.sh [OUTPUT-FOLDER]      (default: out/sample-machine)
#
# The default folder is made anew each time; another one must not exist yet. The machines are in
# its folders "old" and "new".
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

# Runs the program, which ends with 1 when it has something to name on standard error.
run_program() {
  status=0
  build/run/src/cli/norvo-playlists "$@" || status=$?
  [ "$status" -le 1 ] || exit "$status"
}

scripts/install-dependencies.sh build
# Several files as one are compiled in half the time, and for a first look that is what counts.
cmake -S . -B build/run -G Ninja -DCMAKE_BUILD_TYPE=Release -DNORVO_BUILD_TESTS=OFF \
  -DNORVO_JOIN_SOURCES=ON >/dev/null
cmake --build build/run --target norvo-playlists

[ "$out" != "$default" ] || rm -rf "$out"
mkdir -p "$out"
cp -R examples/sample-machine "$out/old"
cp -R examples/sample-new-machine "$out/new"
chmod -R u+w "$out"

echo
run_program migrate --from "$out/old" --to "$out/new"

lists="$out/new/C/My Documents/Norvo Media/PlayLists"
echo
echo "The playlists of Winamp in $lists (the other players have the same ones):"
ls "$lists/WinAmp"
echo
echo "One of them, Pop Hits.m3u:"
cat "$lists/WinAmp/Pop Hits.m3u"
echo
echo "All playlists of the new machine, verified. The CD of the old machine is not in it:"
run_program verify --machine "$out/new" >"$out/verified.txt"
awk '{ found += $(NF - 5); missing += $(NF - 3); addresses += $(NF - 1) }
     END { print NR " playlists: " found " found, " missing " missing, " addresses " addresses" }' \
  "$out/verified.txt"
