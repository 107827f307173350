#!/bin/sh
# Builds the Debian packages norvo-playlists (the program) and libnorvoplaylist-dev (the libraries)
# into out/, looks at them with lintian, and installs, uses and removes them in a fresh Debian of their
# own. That needs root and the network; where it cannot be tried, this says so.
#
#   scripts/package-debian.sh
set -eu
cd "$(dirname "$0")/.."
jobs=$(nproc 2>/dev/null || echo 2)

scripts/install-dependencies.sh debian-packages
# As protected as Debian's own programs. Of one commit the same packages come at any time.
CPPFLAGS=$(dpkg-buildflags --get CPPFLAGS)
CXXFLAGS="$(dpkg-buildflags --get CXXFLAGS) $CPPFLAGS -g0"
LDFLAGS=$(dpkg-buildflags --get LDFLAGS)
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct 2>/dev/null || date +%s)}
export CXXFLAGS LDFLAGS SOURCE_DATE_EPOCH

cmake --preset debian >/dev/null
cmake --build --preset debian -j "$jobs"
cmake --build --preset debian --target docs manual
rm -f out/norvo-playlists_*.deb out/libnorvoplaylist-dev_*.deb
cpack --config cmake/DebianPackages.cmake
rm -rf out/_CPack_Packages
lintian --fail-on error out/norvo-playlists_*.deb out/libnorvoplaylist-dev_*.deb
# 77: it says what kept it from being tried.
tests/packages/debian_test.py --packages out || [ $? -eq 77 ]
