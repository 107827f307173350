#!/bin/sh
# Builds the libraries that no Debian package holds for mingw-w64, for both bitnesses, from the
# sources of the packages that the other builds link: TagLib, pugixml and utf8proc. They are kept
# for the next time, in a folder for each bitness in
# ${NORVO_WINDOWS_LIBRARIES:-${XDG_CACHE_HOME:-$HOME/.cache}/norvo-playlists/windows}; a folder
# is there whole or not at all. Called by scripts/install-dependencies.sh.
#
#   scripts/build-windows-libraries.sh
set -eu

packages="libtag1-dev libpugixml-dev libutf8proc-dev"
libraries=${NORVO_WINDOWS_LIBRARIES:-${XDG_CACHE_HOME:-$HOME/.cache}/norvo-playlists/windows}
# What was built, and by which version of this script.
# shellcheck disable=SC2086
versions="build 1
$(dpkg-query -W -f='${source:Package} ${source:Version}\n' $packages)"

is_built() {
    [ "$(cat "$libraries/$1/versions" 2>/dev/null)" = "$versions" ]
}
are_built() {
    is_built x86_64-w64-mingw32 && is_built i686-w64-mingw32
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

# build_library TRIPLE SOURCE [CMAKE OPTION...]: into $work/TRIPLE.
build_library() {
    triple=$1
    source=$2
    shift 2
    build=$work/build/$triple/$(basename "$source")
    cmake -G Ninja -S "$source" -B "$build" \
        -DCMAKE_SYSTEM_NAME=Windows -DCMAKE_SYSTEM_PROCESSOR="${triple%%-*}" \
        -DCMAKE_C_COMPILER="$triple-gcc-posix" -DCMAKE_CXX_COMPILER="$triple-g++-posix" \
        -DCMAKE_RC_COMPILER="$triple-windres" \
        -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=OFF \
        -DCMAKE_INSTALL_PREFIX="$work/$triple" -DCMAKE_INSTALL_LIBDIR=lib "$@"
    cmake --build "$build"
    cmake --install "$build"
}

# build_bitness TRIPLE
build_bitness() {
    for source in "$work"/sources/*/; do
        # The headers of one library that TagLib is compiled with; they belong to no system.
        build_library "$1" "${source%/}" -DWITH_ZLIB=OFF -DBUILD_BINDINGS=OFF \
            -DCMAKE_CXX_FLAGS="-isystem /usr/include/utf8cpp"
    done
    # What is copied becomes a folder that counts only when it is whole.
    echo "$versions" >"$work/$1/versions"
    rm -rf "${libraries:?}/$1" "$libraries/$1.new"
    cp -R "$work/$1" "$libraries/$1.new"
    mv "$libraries/$1.new" "$libraries/$1"
}

echo "Building the Windows libraries in $libraries"
fetch_sources >"$log" 2>&1
for triple in x86_64-w64-mingw32 i686-w64-mingw32; do
    if ! is_built "$triple"; then build_bitness "$triple" >"$log" 2>&1; fi
done
