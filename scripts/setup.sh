#!/usr/bin/env bash
# setup.sh run|screen|linux|windows|lint|package...: installs the Debian packages that a purpose needs.
set -euo pipefail
. "$(dirname "$0")/common.sh"

run=(cmake ninja-build g++ pkg-config ccache libjpeg-dev libwxgtk3.2-dev libgtk-3-dev libx11-dev
    libxrandr-dev libxss-dev libsm-dev libice-dev libwayland-dev libglib2.0-dev
    libpango1.0-dev librsvg2-common fonts-liberation libgtest-dev libbenchmark-dev)
# A virtual screen and what a demonstration on it needs.
screen=(xvfb xauth openbox xdotool imagemagick x11-utils procps dbus fonts-dejavu-core
    adwaita-icon-theme)
# The desktops and tools that the tests run against.
linux=(clang libclang-rt-14-dev xfconf xfdesktop4 gsettings-desktop-schemas libglib2.0-bin
    dconf-gsettings-backend dconf-cli desktop-file-utils x11-apps locales
    at-spi2-core python3-pyatspi)
lint=(clang-format-14 clang-tidy-14)
windows=(g++-mingw-w64-x86-64-posix nasm dpkg-dev wine wine64 fonts-wine)
# What makes the packages of both homes.
package=(build-essential desktop-file-utils nsis zip debhelper dpkg-dev lintian appstream man-db)

for purpose in "$@"; do
    case $purpose in
        run) install_packages "${run[@]}" ;;
        screen) install_packages "${screen[@]}" ;;
        linux) install_packages "${linux[@]}" ;;
        lint) install_packages "${lint[@]}" ;;
        package) install_packages "${package[@]}" ;;
        windows) install_packages "${windows[@]}" ;;
        *) die "unknown purpose $purpose" ;;
    esac
done
