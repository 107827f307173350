#!/bin/sh
# Installs what building and testing need on a Debian 12 system, if it is missing: for the build
# alone; for that of a program that needs no shared library; for Windows; for the packages of either
# system; or for all tests.
#
#   scripts/install-dependencies.sh build|static|windows|debian-packages|windows-packages|test
set -eu

packages="g++ cmake ninja-build libcli11-dev nlohmann-json3-dev python3 git
          libpugixml-dev libtag1-dev libutf8proc-dev"
# What the static TagLib is built with.
static="dpkg-dev libutfcpp-dev zlib1g-dev"
# What writes the manual's pages, which all packages have.
manual=cmark-gfm
# For Windows: compilers, what its libraries are built with, the IDL compiler with the files that it
# imports, and what runs the result.
windows="g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix mingw-w64-tools libwine-dev
         dpkg-dev libutfcpp-dev wine64 wine googletest $manual"
# What makes and tries Debian's packages.
debian="$manual dpkg-dev doxygen lintian mmdebstrap man-db"
case ${1:-} in
static) packages="$packages $static" ;;
windows) packages="$packages $windows" ;;
debian-packages) packages="$packages $debian" ;;
windows-packages) packages="$packages $windows nsis" ;;
test)
    packages="$packages $static $windows libgtest-dev libbenchmark-dev ccache clang libclang-rt-14-dev
              clang-format strace libseccomp-dev valgrind python3-gi gir1.2-totemplparser-1.0
              doxygen pkg-config chromium chromium-driver man-db zsh fish mono-mcs"
    ;;
esac

install() {
    root=
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null 2>&1 || {
            echo "Missing packages: $*" >&2
            echo "Run this as root, or install them: apt-get install $*" >&2
            exit 1
        }
        root=sudo
    fi
    echo "Installing: $*"
    # An index of a foreign architecture that cannot be fetched does no harm.
    $root apt-get update -qq >/dev/null 2>&1 || true
    $root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "$@" \
        >/dev/null
}

missing=
for package in $packages; do
    status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
    [ "$status" = "install ok installed" ] || missing="$missing $package"
done
# shellcheck disable=SC2086
[ -z "$missing" ] || install $missing

scripts=$(dirname "$0")
case ${1:-} in
windows | windows-packages | test) "$scripts/build-libraries.sh" windows ;;
esac
case ${1:-} in
static | test) "$scripts/build-libraries.sh" linux ;;
esac
