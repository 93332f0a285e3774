#!/usr/bin/env bash
# demonstrate.sh PROGRAM SCREENSHOT.png: on the present display, with a library of its own, adds the
# sample pictures, applies one as at log-in, and takes a screenshot of the desktop and the window.
set -euo pipefail
. "$(dirname "$0")/common.sh"
murala=$1 screenshot=$2
home=$(mktemp -d)
pids=()
trap 'kill "${pids[@]}" 2>/dev/null; rm -rf "$home"' EXIT
export XDG_DATA_HOME=$home/data XDG_CONFIG_HOME=$home/config XDG_RUNTIME_DIR=$home/run
export XDG_CURRENT_DESKTOP= GDK_BACKEND=x11
mkdir -p -m 700 "$XDG_DATA_HOME" "$XDG_CONFIG_HOME" "$XDG_RUNTIME_DIR"

openbox >/dev/null 2>&1 &
pids+=($!)

wait_for() { # wait_for TEXT COMMAND...
    wait_until "${@:2}" || die "waited in vain for $1"
}
applied() { xprop -root _XROOTPMAP_ID | grep -q 0x; }

"$murala" /apply "$(dirname "$murala")"/samples/*.jpg >"$home/log" 2>&1 &
pids+=($!)
wait_for "the window" xdotool search --onlyvisible --name '^Murala$'
wait_for "the list" test -s "$XDG_DATA_HOME/murala/Murala.Wallpaper.List"
window=$(xdotool search --onlyvisible --name '^Murala$' | head -1)
xdotool windowactivate --sync "$window" key Ctrl+Return
wait_for "the wallpaper" applied
sleep 2
import -silent -window root "$screenshot"
say "the desktop with a composed sample picture: $screenshot"
