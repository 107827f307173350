#!/bin/sh
# Builds the Windows automation library for both bitnesses and packs it, with its header, examples
# and documentation, into out/NorvoPlayList-VERSION-windows.zip.
#
#   scripts/package-windows.sh
set -eu
cd "$(dirname "$0")/.."
jobs=$(nproc 2>/dev/null || echo 2)

scripts/install-dependencies.sh windows
for preset in windows-x64 windows-x86; do
    cmake --preset "$preset" >/dev/null
    cmake --build --preset "$preset" --target norvo_windows -j "$jobs"
done
rm -f out/NorvoPlayList-*-windows.zip
cpack --config cmake/WindowsPackage.cmake
rm -rf out/_CPack_Packages
tests/com/package_test.py --zip out/NorvoPlayList-*-windows.zip
