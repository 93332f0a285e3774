#!/usr/bin/env bash
# session-end.sh WINE Fakes.exe Murala.exe: asks all windows of Murala whether the session may end, refuses for
# another program, asks again and ends it: hidden, with its window, and with a message that nobody answers.
set -euo pipefail
wine=$1 fakes=$2 murala=$3
pids=()
finish() {
    "$wine" taskkill /f /im Murala.exe >/dev/null 2>&1 || true
    kill "${pids[@]}" 2>/dev/null || true
}
. "$(dirname "$0")/screen.sh"

start() { # start PROGRAM [ARGUMENT...]: on the desktop of both
    "$wine" explorer "/desktop=End$$,640x480" "$@" &
    pids+=($!)
}
murala_runs() { pgrep -f "^Z:.*$(basename "$folder").Murala.exe" >/dev/null; }
murala_has_ended() { ! murala_runs; }

ask() { # ask session-goes-on|session-ends: what the windows answered
    rm -f "$folder/log"
    start "$(windows_name "$fakes")" "$1" "$(windows_name "$folder/log")"
    eventually grep -qs '^told' "$folder/log"
    if ! grep -q '"Murala": 1' "$folder/log" || grep '^asked' "$folder/log" | grep -qv ': 1'; then
        cat "$folder/log" >&2
        exit 1
    fi
}

cp "$murala" "$folder/Murala.exe"
for case in hidden shown message; do
    printf '[Main]\r\nWindowState=%d\r\n' "$([ $case = hidden ] && echo 0 || echo 1)" >"$folder/Murala.ini"
    [ $case != message ] || echo 'no list' >"$folder/Murala.Wallpaper.List"
    start "$(windows_name "$folder/Murala.exe")"
    eventually murala_runs
    sleep 4
    ask session-goes-on
    sleep 2 # as long as the end may take
    murala_runs || { echo "$case: it has ended though the session goes on" >&2; exit 1; }
    ask session-ends
    eventually murala_has_ended
done
