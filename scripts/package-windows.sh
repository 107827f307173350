#!/bin/sh
# Builds the program and the automation library for Windows in both bitnesses and packs them, with
# header, examples and manual, into out/NorvoPlayList-VERSION-windows.zip, and into the installer
# out/NorvoPlayList-VERSION-setup.exe, which is tried under Wine.
#
#   scripts/package-windows.sh
set -eu
cd "$(dirname "$0")/.."
jobs=$(nproc 2>/dev/null || echo 2)

scripts/install-dependencies.sh windows-packages
for preset in windows-x64 windows-x86; do
    cmake --preset "$preset" >/dev/null
    cmake --build --preset "$preset" --target norvo_windows -j "$jobs"
done
rm -f out/NorvoPlayList-*-windows.zip out/NorvoPlayList-*-setup.exe
cpack --config cmake/WindowsPackage.cmake
rm -rf out/_CPack_Packages
zip=$(echo out/NorvoPlayList-*-windows.zip)
tests/com/package_test.py --zip "$zip"
installer=${zip%-windows.zip}-setup.exe
scripts/make-windows-installer.py "$zip" "$installer"
tests/packages/installer_test.py --installer "$installer" --zip "$zip"
