#!/bin/sh
# Builds the libraries that no Debian package holds in static form, from the sources of the packages
# that the other builds link: for Windows, in both bitnesses, TagLib, pugixml and utf8proc; for Linux
# TagLib alone, of which Debian has only the shared one.
#
# They are kept for the next time, in a folder for each kind of machine, in
# ${XDG_CACHE_HOME:-$HOME/.cache}/norvo-playlists/linux or windows, or where NORVO_LINUX_LIBRARIES or
# NORVO_WINDOWS_LIBRARIES says; a folder is there whole or not at all. Called by
# scripts/install-dependencies.sh.
#
#   scripts/build-libraries.sh linux|windows
set -eu

cache=${XDG_CACHE_HOME:-$HOME/.cache}/norvo-playlists
case ${1:-} in
linux)
    packages=libtag1-dev
    libraries=${NORVO_LINUX_LIBRARIES:-$cache/linux}
    triples=$(dpkg-architecture -qDEB_HOST_MULTIARCH)
    ;;
windows)
    packages="libtag1-dev libpugixml-dev libutf8proc-dev"
    libraries=${NORVO_WINDOWS_LIBRARIES:-$cache/windows}
    triples="x86_64-w64-mingw32 i686-w64-mingw32"
    ;;
*)
    echo "usage: scripts/build-libraries.sh linux|windows" >&2
    exit 2
    ;;
esac
system=$1
# What was built, and by which version of this script.
# shellcheck disable=SC2086
versions="build 1
$(dpkg-query -W -f='${source:Package} ${source:Version}\n' $packages)"

is_built() {
    [ "$(cat "$libraries/$1/versions" 2>/dev/null)" = "$versions" ]
}
are_built() {
    for triple in $triples; do is_built "$triple" || return 1; done
}

! are_built || exit 0
mkdir -p "$libraries"
# Of two that are started at once, the second finds what the first has built.
exec 9>"$libraries/lock"
flock 9
! are_built || exit 0

work=$(mktemp -d)
log=$work/log
trap '[ $? -eq 0 ] || tail -n 40 "$log" >&2; rm -rf "$work"' EXIT
trap 'exit 130' HUP INT TERM

# The system's own mirrors, as sources, in a list of our own: /etc/apt stays as it is.
list_sources() {
    apt-get indextargets --format "$2" 'Created-By: Packages' 'Origin: Debian' >"$1"
}
fetch_sources() {
    entry='deb-src [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] '
    entry="$entry\$(REPO_URI) \$(RELEASE) \$(COMPONENT)"
    list_sources "$work/sources.list" "$entry"
    if [ ! -s "$work/sources.list" ]; then
        # Nobody has asked the mirrors yet.
        root=
        [ "$(id -u)" -eq 0 ] || root=sudo
        $root apt-get update -qq || true
        list_sources "$work/sources.list" "$entry"
    fi
    mkdir -p "$work/lists/partial" "$work/archives/partial" "$work/sources"
    set -- -qq -o "Dir::Etc::sourcelist=$work/sources.list" -o Dir::Etc::sourceparts=- \
        -o "Dir::State::lists=$work/lists" -o "Dir::Cache=$work" -o APT::Sandbox::User=root
    apt-get "$@" update
    # The very versions that are installed, or what the mirrors have by now.
    cd "$work/sources"
    echo "$versions" | tail -n +2 | while read -r name version; do
        apt-get "$@" --only-source source "$name=$version" ||
            apt-get "$@" --only-source source "$name"
    done
    cd - >/dev/null
}

# build_library TRIPLE SOURCE: into $work/TRIPLE.
build_library() {
    build=$work/build/$1/$(basename "$2")
    case $system in
    linux)
        # As protected as Debian's own one.
        flags="$(dpkg-buildflags --get CPPFLAGS) $(dpkg-buildflags --get CXXFLAGS) -g0"
        options=
        ;;
    windows)
        flags=
        options="-DCMAKE_SYSTEM_NAME=Windows -DCMAKE_SYSTEM_PROCESSOR=${1%%-*}
                 -DCMAKE_C_COMPILER=$1-gcc-posix -DCMAKE_CXX_COMPILER=$1-g++-posix
                 -DCMAKE_RC_COMPILER=$1-windres -DWITH_ZLIB=OFF"
        ;;
    esac
    # The headers of one library that TagLib is compiled with; they belong to no system.
    flags="$flags -isystem /usr/include/utf8cpp"
    # shellcheck disable=SC2086
    cmake -G Ninja -S "$2" -B "$build" $options -DCMAKE_CXX_FLAGS="$flags" \
        -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=OFF -DBUILD_BINDINGS=OFF \
        -DCMAKE_INSTALL_PREFIX="$work/$1" -DCMAKE_INSTALL_LIBDIR=lib
    cmake --build "$build"
    cmake --install "$build"
}

# build_libraries TRIPLE
build_libraries() {
    for source in "$work"/sources/*/; do build_library "$1" "${source%/}"; done
    # What is copied becomes a folder that counts only when it is whole.
    echo "$versions" >"$work/$1/versions"
    rm -rf "${libraries:?}/$1" "$libraries/$1.new"
    cp -R "$work/$1" "$libraries/$1.new"
    mv "$libraries/$1.new" "$libraries/$1"
}

echo "Building static libraries in $libraries"
fetch_sources >"$log" 2>&1
for triple in $triples; do
    if ! is_built "$triple"; then build_libraries "$triple" >"$log" 2>&1; fi
done
