#!/usr/bin/env bash
# ./package.sh [linux] [windows]: sets everything up and makes the packages of both homes, or of one, in
# dist/. The same commit gives the same bytes, whatever the folder and the time.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh
[ $# -gt 0 ] || set -- linux windows

export VERSION SOURCE_DATE_EPOCH TZ=UTC LC_ALL=C.UTF-8
VERSION=$(sed -n 's/^project(Murala VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct)}
umask 022

scripts/setup.sh run package
mkdir -p dist
for home in "$@"; do
    case $home in
        linux | windows) "packaging/$home/package.sh" "$top/dist" ;;
        *) die "usage: ./package.sh [linux] [windows]" ;;
    esac
done
(cd dist && ls -l)
