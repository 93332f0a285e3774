#!/usr/bin/env bash
# check-reproducible.sh [linux] [windows]: makes the packages of the last commit twice - in folders of other
# names, at other times, with another umask, time zone and language, the second time without ccache - and
# compares them byte by byte.
set -euo pipefail
. "$(dirname "$0")/common.sh"
[ $# -gt 0 ] || set -- linux windows
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# make_packages FOLDER TIME [NAME=VALUE...]: of a clone in the folder, whose files are of that time.
make_packages() {
    local folder=$1 time=$2
    shift 2
    git clone --quiet --no-checkout "$top" "$folder"
    git -C "$folder" checkout --quiet --detach "$commit"
    find "$folder" -path "$folder/.git" -prune -o -exec touch --date="$time" {} +
    (cd "$folder" && env "$@" ./package.sh "${homes[@]}") >"$folder.log" 2>&1 ||
        die "$folder: $(tail -n 30 "$folder.log")"
}

unpack() { # unpack PACKAGE FOLDER
    mkdir "$2"
    case $1 in
        *.deb) dpkg-deb --raw-extract "$1" "$2/tree" ;;
        *.tar.gz | *.zip) (cd "$2" && cmake -E tar xf "$1") ;;
    esac
}

# What differs inside of two packages, as far as they can be unpacked.
explain() {
    unpack "$1" "$work/inside-1"
    unpack "$2" "$work/inside-2"
    diff --recursive --brief "$work/inside-1" "$work/inside-2" || true
    ! command -v diffoscope >/dev/null || diffoscope "$1" "$2" || true
    rm -r "$work/inside-1" "$work/inside-2"
}

homes=("$@")
commit=$(git -C "$top" rev-parse HEAD)
one=$work/one
two=$work/another-folder-with-a-longer-name/two
mkdir "${two%/*}"
git -C "$top" diff --quiet HEAD || say "what is not committed is left out"
say "the first time"
make_packages "$one" '2001-02-03 04:05'
say "the second time"
(
    umask 077
    make_packages "$two" '2011-12-13 14:15' CCACHE_DISABLE=1 TZ=Pacific/Auckland LANG=de_DE.UTF-8
)
diff <(ls "$one/dist") <(ls "$two/dist") || die "there are other packages"
failed=0
for package in "$one"/dist/*; do
    name=${package##*/}
    if cmp "$package" "$two/dist/$name"; then
        say "the same bytes: $name, $(sha256sum <"$package" | cut -c 1-16)"
    else
        explain "$package" "$two/dist/$name"
        failed=1
    fi
done
[ "$(ls "$one/dist" | wc -l)" -eq $((2 * ${#homes[@]})) ] || die "packages are missing"
exit $failed
