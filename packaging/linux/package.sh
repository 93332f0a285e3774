#!/usr/bin/env bash
# package.sh DIST: makes the Debian package and the archive of the same tree. VERSION and
# SOURCE_DATE_EPOCH come from ./package.sh.
set -euo pipefail
. "$(dirname "$0")/../../scripts/common.sh"
dist=$1
build=$top/build/package-linux # always the same folder: ccache knows its files again
source=$build/source
maintainer=$(sed -n 's/^Maintainer: //p' "$top/packaging/linux/debian/control")
name=murala-$VERSION-linux-x86_64
deb=$build/murala_${VERSION}_amd64.deb

# The files of git alone, so that nothing of the checkout gets into the packages.
copy_sources() {
    rm -rf "$build"
    mkdir -p "$source"
    (cd "$top" && git ls-files -z | tar --create --null --files-from=-) | tar --extract -C "$source"
    cp -r "$source/packaging/linux/debian" "$source/debian"
}

# CHANGELOG.md in Debian's form; the time of the present version is that of its sources.
debian_changelog() {
    awk -v maintainer="$maintainer" -v present="$VERSION" -v time="@$SOURCE_DATE_EPOCH" '
        function finish(   command, date) {
            if (!version) return
            command = "date -u -R -d " (version == present ? time : day)
            command | getline date
            close(command)
            printf "\n -- %s  %s\n\n", maintainer, date
            version = ""
        }
        /^## / {
            finish()
            if ($2 == "[Unreleased]") next
            version = substr($2, 2, length($2) - 2)
            day = $4
            printf "murala (%s) unstable; urgency=medium\n", version
        }
        !version { next }
        /^### / { printf "\n  [ %s ]\n", $2 }
        /^- / { print "  * " substr($0, 3) }
        /^  / { print "  " $0 }
        END { finish() }' "$top/CHANGELOG.md"
}

build_deb() {
    say "building the Debian package"
    export CCACHE_BASEDIR=$source
    if command -v ccache >/dev/null; then
        export CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache
    fi
    debian_changelog >"$source/debian/changelog"
    grep -q "^murala ($VERSION)" "$source/debian/changelog" ||
        die "CHANGELOG.md says nothing of version $VERSION"
    (cd "$source" && dpkg-buildpackage --build=binary --no-sign) >"$build/log" 2>&1 ||
        { tail -n 40 "$build/log" >&2; die "the Debian package could not be built"; }
}

check_deb() {
    local tree=$source/debian/murala
    appstreamcli validate --no-net "$tree"/usr/share/metainfo/*.xml
    desktop-file-validate "$tree"/usr/share/applications/*.desktop
    lintian --display-info --pedantic --tag-display-limit 0 --allow-root \
        --fail-on error,warning,info,pedantic "$deb"
    # The largest that a download may be.
    [ "$(stat -c %s "$deb")" -lt 3000000 ] || die "$deb is larger than 3 MB"
}

# The package's tree, which runs from any folder.
make_archive() {
    local folder=$build/$name
    mkdir "$folder"
    cp -r "$source/debian/murala/usr/." "$folder"
    rm -r "$folder/share/doc" "$folder/share/lintian"
    cp "$top/LICENSE" "$top/CHANGELOG.md" "$folder"
    sed "s/@VERSION@/$VERSION/g" "$top/packaging/linux/archive/README" >"$folder/README"
    tar --create -C "$build" --sort=name --mtime="@$SOURCE_DATE_EPOCH" --owner=0 --group=0 \
        --numeric-owner --mode=go=rX,u+rw,a-s --format=gnu "$name" | gzip -9n >"$dist/$name.tar.gz"
}

copy_sources
build_deb
check_deb
make_archive
cp "$deb" "$dist"
