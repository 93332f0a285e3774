#!/usr/bin/env bash
# Sets everything up and starts Murala: ./run.sh [arguments]. Without a display it starts a virtual
# one, applies a sample picture there and prints where the screenshot of the desktop lies.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh
. scripts/screen.sh
scripts/setup.sh run
scripts/build.sh linux-release murala
murala=$top/build/linux-release/murala

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec "$murala" "$@"
fi
scripts/setup.sh screen
start_screen 1280x800
scripts/demonstrate.sh "$murala" "$top/build/screenshot.png"
