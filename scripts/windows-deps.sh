#!/usr/bin/env bash
# Builds the Windows libraries (libjpeg-turbo, wxWidgets, GoogleTest; all static) from the
# distribution's source packages and prints the prefix they are installed in. The prefix lies in a
# cache outside the checkout; its name is made from everything that goes into the libraries.
set -euo pipefail
. "$(dirname "$0")/common.sh"

source_packages=(libjpeg-turbo wxwidgets3.2 googletest)
toolchain=$top/cmake/mingw-w64.cmake

# A private copy of the package manager's source list that names source packages, too.
make_source_list() {
    mkdir -p "$1/lists/partial" "$1/sources.list.d"
    local file
    for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
        [ -f "$file" ] && sed -n 's/^deb \(.*debian.*\)/deb-src \1/p' "$file"
    done >"$1/sources.list"
    for file in /etc/apt/sources.list.d/*.sources; do
        [ -f "$file" ] && grep -qi '^URIs:.*debian' "$file" &&
            sed 's/^Types:.*/Types: deb-src/' "$file" >"$1/sources.list.d/$(basename "$file")"
    done
    return 0
}

apt_private() {
    local dir=$1 tool=$2
    shift 2
    "$tool" -qq -o Dir::Etc::sourcelist="$dir/sources.list" \
        -o Dir::Etc::sourceparts="$dir/sources.list.d" -o Dir::State::lists="$dir/lists" \
        -o Dir::Cache::srcpkgcache= -o Dir::Cache::pkgcache= -o APT::Sandbox::User=root "$@"
}

fetch_sources() {
    local dir=$1
    make_source_list "$dir/apt"
    apt_private "$dir/apt" apt-get update
    (cd "$dir" && apt_private "$dir/apt" apt-get source "${source_packages[@]}" >/dev/null)
}

# build NAME SOURCE_GLOB CMAKE_ARGUMENTS...
build() {
    local name=$1 glob=$2 source
    shift 2
    source=$(find "$work" -maxdepth 1 -type d -name "$glob" | head -1)
    [ -n "$source" ] || die "no source folder $glob"
    # The folder, which has another name each time, stays out of the library.
    local flags="-ffile-prefix-map=$work=libraries"
    say "building $name for Windows"
    cmake -S "$source" -B "$work/build-$name" -G Ninja -Wno-dev \
        -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_C_FLAGS="$flags" -DCMAKE_CXX_FLAGS="$flags" \
        -DCMAKE_INSTALL_PREFIX="$staging" "$@" >"$work/$name.log" 2>&1 &&
        ninja -C "$work/build-$name" install >>"$work/$name.log" 2>&1 ||
        { tail -40 "$work/$name.log" >&2; die "$name did not build"; }
}

build_wxwidgets() {
    local off=() option
    for option in XRC HTML AUI STC RIBBON WEBVIEW MEDIACTRL OPENGL LIBPNG LIBTIFF LIBJPEG EXPAT \
        ZLIB ARTPROVIDER_TANGO NANOSVG SVG PROPGRID RICHTEXT XML REGEX LIBLZMA LIBSDL WXHTML_HELP; do
        off+=("-DwxUSE_$option=OFF")
    done
    build wxwidgets 'wxwidgets3.2-*' -DwxBUILD_SHARED=OFF -DwxBUILD_PRECOMP=OFF \
        -DwxBUILD_TESTS=OFF -DwxBUILD_SAMPLES=OFF -DwxBUILD_DEMOS=OFF "${off[@]}"
}

# The packages bring the licences of what is linked.
keep_licences() {
    mkdir "$staging/licences"
    cat "$work"/libjpeg-turbo-*/{LICENSE.md,README.ijg} >"$staging/licences/libjpeg-turbo.txt"
    cat "$work"/wxwidgets3.2-*/docs/{licence,lgpl}.txt >"$staging/licences/wxWidgets.txt"
}

key=$(cat "$0" "$toolchain" <(x86_64-w64-mingw32-g++-posix --version) | sha256sum | cut -c1-16)
prefix=$cache/windows-deps-$key
if [ ! -e "$prefix/complete" ]; then
    work=$(mktemp -d)
    staging=$prefix.$$
    trap 'rm -rf "$work" "$staging"' EXIT
    mkdir -p "$cache"
    # Two runs at once build beside each other; the first to finish stays.
    export MURALA_WINDOWS_DEPS=$staging
    fetch_sources "$work" >&2
    build libjpeg-turbo 'libjpeg-turbo-*' -DENABLE_SHARED=OFF -DWITH_TURBOJPEG=OFF
    build googletest 'googletest-*' -DBUILD_GMOCK=OFF
    build_wxwidgets
    keep_licences
    (cd "$work" && ls ./*.dsc) >"$staging/complete"
    mv -T "$staging" "$prefix" 2>/dev/null || rm -rf "$staging"
fi
echo "$prefix"
