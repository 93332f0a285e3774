#!/usr/bin/env bash
# wine.sh PROGRAM.exe [arguments]: runs a Windows program under Wine in a prefix of Murala's own,
# made on first use.
set -euo pipefail
. "$(dirname "$0")/common.sh"
# Without a UTF-8 locale Wine cannot name all files.
export LC_ALL=C.UTF-8
export WINEPREFIX=${WINEPREFIX:-$cache/wine} WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
if [ ! -e "$WINEPREFIX/ready" ]; then
    mkdir -p "$WINEPREFIX"
    (
        flock 9
        if [ ! -e "$WINEPREFIX/ready" ]; then
            wine wineboot --init >/dev/null 2>&1
            wineserver -w
            touch "$WINEPREFIX/ready"
        fi
    ) 9>"$WINEPREFIX.lock"
fi
# Wine's server ends soon after the last program, and a program that starts at that moment is turned away
# ("recvmsg: Connection reset by peer"): ours stays for a while. Where one runs already this does nothing.
wineserver -p20 >/dev/null 2>&1 || true
# The first program starts Wine's services, which keep its output open as long as the server stays.
wine cmd /c exit </dev/null >/dev/null 2>&1 || true
exec wine "$@"
