#!/bin/sh
# Makes the sample machines (examples/sample-machine and sample-new-machine) and their description
# (examples/README.md) afresh.
#
#   scripts/make-sample-machine.sh [EXAMPLES-FOLDER]
#
# Needs a Debian system. The tools that are missing are installed with apt-get,
# which takes root rights:
#   lame                        the MP3 encoder (and tags of its own)
#   id3v2                       tagger: ID3v1, ID3v2.3 and both
#   python3-mutagen             tagger: UTF-16 text, attached picture
#   python3-gi + TotemPlParser  a desktop player's playlist writer
# The same tool versions give the same bytes on every run.
set -eu

here=$(cd "$(dirname "$0")" && pwd)
out=${1:-$here/../examples}

missing=
command -v lame >/dev/null 2>&1 || missing="$missing lame"
command -v id3v2 >/dev/null 2>&1 || missing="$missing id3v2"
[ -x /usr/bin/python3 ] || missing="$missing python3"
/usr/bin/python3 -c 'import mutagen' 2>/dev/null || missing="$missing python3-mutagen"
/usr/bin/python3 -c 'import gi
gi.require_version("TotemPlParser", "1.0")
from gi.repository import TotemPlParser' 2>/dev/null ||
    missing="$missing python3-gi gir1.2-totemplparser-1.0"

if [ -n "$missing" ]; then
    # An index of a foreign architecture that cannot be fetched does no harm.
    apt-get update || true
    # shellcheck disable=SC2086
    apt-get install -y --no-install-recommends $missing
fi

LC_ALL=C.UTF-8 TZ=UTC exec /usr/bin/python3 "$here/make-sample-machine.py" "$out"
