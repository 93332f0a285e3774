#!/usr/bin/env bash
# package.sh DIST: makes the portable .zip and the setup program of the Windows home in the folder DIST.
# ../../package.sh calls it and has set VERSION, SOURCE_DATE_EPOCH, TZ and LC_ALL.
set -euo pipefail
. "$(dirname "$0")/../../scripts/common.sh"
dist=$1
here=$top/packaging/windows
build=$top/build/windows-release
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
tree=$work/Murala

# The licence texts of what is linked: those of the libraries that we build, and those of the compiler.
copy_licences() {
    local documents=/usr/share/doc
    mkdir "$tree/licences"
    cp "$("$top/scripts/windows-deps.sh")"/licences/*.txt "$tree/licences"
    cp $documents/mingw-w64-x86-64-dev/copyright "$tree/licences/MinGW-w64.txt"
    # With the exception that lets every program link it.
    cp $documents/gcc-mingw-w64-x86-64-posix-runtime/copyright "$tree/licences/GCC-runtime.txt"
    cp /usr/share/common-licenses/GPL-3 "$tree/licences/GPL-3.txt"
}

make_tree() {
    mkdir "$tree" "$tree/samples"
    cp "$build"/{Murala,murala-compose}.exe "$tree"
    cp -r "$top"/src/shell/pages/. "$tree"
    cp "$top"/samples/*.{jpg,bmp} "$tree/samples"
    mv "$tree/samples/Planet02.jpg" "$tree"
    cp "$top/LICENSE" "$tree/LICENSE.txt"
    cp "$top/CHANGELOG.md" "$tree/CHANGELOG.txt"
    cp "$top/packaging/Murala.default.ini" "$tree"
    copy_licences
}

# One time for all files, and nothing that differs between two machines.
clamp() {
    find "$work" -exec touch --no-dereference --date="@$SOURCE_DATE_EPOCH" {} +
    chmod -R u=rwX,go=rX "$tree"
}

# files: names of the tree's files, the programs at the end.
files() {
    (cd "$tree" && find . -type f ! -name '*.exe' -printf '%P\n' | sort &&
        find . -type f -name '*.exe' -printf '%P\n' | sort -r)
}

make_zip() {
    rm -f "$dist/$1"
    (cd "$work" && files | sed 's,^,Murala/,' | zip -q -X -9 "$dist/$1" -@)
}

# Beside the program, for the setup of a later version, which may not have all of these files.
write_file_list() {
    touch "$tree/Setup.files"
    files | tr / '\\' | sed 's/$/\r/' >"$work/files"
    mv "$work/files" "$tree/Setup.files"
}

# The lists that installation and removal walk.
write_lists() {
    echo '!macro EachFile Do'
    files | tr / '\\' | sed 's/.*/!insertmacro ${Do} "&"/'
    echo '!macroend'
    echo '!macro EachFolder Do'
    (cd "$tree" && find . -mindepth 1 -type d -printf "%P\n" | sort -r) | tr / '\\' |
        sed 's/.*/!insertmacro ${Do} "&"/'
    echo '!macroend'
}

installed_program() {
    sed -n 's/^MURALA_INSTALLED_PROGRAM:[A-Z]*=//p' "$build/CMakeCache.txt"
}

size_in_kb() {
    find "$tree" -type f -printf '%s\n' | awk '{ sum += $1 } END { print int(sum / 1024) }'
}

make_setup() {
    local program
    program=$(installed_program)
    cp /usr/share/doc/nsis/copyright "$tree/licences/NSIS.txt"
    write_file_list
    # Twice the size that the last page shows at 96 dots an inch.
    "$top/build/linux-release/murala-compose" "$top/samples/Landscape.jpg" "Fit Vertically" 328x628 \
        "$work/picture.bmp"
    clamp
    write_lists >"$work/lists.nsh"
    makensis -V2 -WX -NOCD "-DVERSION=$VERSION" "-DTREE=$tree" "-DLISTS=$work/lists.nsh" "-DHERE=$here" \
        "-DICON=$top/src/shell/resources/murala.ico" "-DPICTURE=$work/picture.bmp" "-DSETUP=$dist/$1" \
        "-DSTANDARD_FOLDER=${program%\\*}" "-DSIZE_KB=$(size_in_kb)" \
        "$here/setup.nsi"
    # The largest that a download may be.
    [ "$(stat -c %s "$dist/$1")" -lt 6000000 ] || die "$1 is larger than 6 MB"
}

"$top/scripts/setup.sh" windows
"$top/scripts/build.sh" linux-release murala-compose
"$top/scripts/build.sh" windows-release murala murala-compose
make_tree
clamp
make_zip "Murala-$VERSION-portable.zip"
make_setup "Murala-$VERSION-setup.exe"
