#!/usr/bin/env bash
# try-setup.sh [SETUP.exe]: installs, uses, updates and removes Murala with its Windows setup program (by
# default the one in dist/), in a Wine prefix and on a virtual screen of its own, without a page being
# seen. Compares registry and folders before and after, prints what differs and fails where something is
# left that should not be, or lost. What Wine cannot show stands in packaging/windows/README.md.
set -uo pipefail
. "$(dirname "$0")/common.sh"
. "$(dirname "$0")/screen.sh"
"$top/scripts/setup.sh" screen windows
setup=$(realpath "${1:-$(ls "$top"/dist/Murala-*-setup.exe)}")

start_screen 1280x1024
openbox >/dev/null 2>&1 &
manager_pid=$!
work=$(mktemp -d)
export WINEPREFIX=$work/wine WINEDEBUG=-all LC_ALL=C.UTF-8
trap 'wineserver -k 2>/dev/null; wineserver -w 2>/dev/null; kill "$manager_pid" "$screen_pid"; rm -rf "$screen_folder" "$work"' EXIT
c=$WINEPREFIX/drive_c
murala=$c/Murala
uninstall_key='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Murala'
run_key='Software\Microsoft\Windows\CurrentVersion\Run'
verb_key='HKCU\Software\Classes\SystemFileAssociations\.jpg\Shell\Add to Murala\Command'
failed=0

fail() { printf 'FAILED: %s\n' "$*"; failed=1; }
windows() { timeout 120 "$top/scripts/wine.sh" "$@" </dev/null; }
wait_for() { # wait_for TEXT COMMAND...
    wait_until "${@:2}" || fail "waited in vain for $1"
}
not() { ! "$@"; }

# expect CODE COMMAND...: what the command answers to who started it.
expect() {
    local code=0 expected=$1
    shift
    "$@" || code=$?
    [ "$code" -eq "$expected" ] || fail "$* answers $code, not $expected"
}
install() { windows "$setup" /S "$@"; }
# Its folder is gone when it has ended, or at least the program: it works as a copy of itself.
remove() { # remove FOLDER ARGUMENTS...
    local folder=$1
    shift
    windows "$folder/uninstall.exe" /S "$@"
    wait_for "the removal" not test -e "$folder/uninstall.exe"
    sleep 1
}

value() { # value KEY [NAME]: what the registry has there
    local name=(/ve)
    [ $# -lt 2 ] || name=(/v "$2")
    windows reg query "$1" "${name[@]}" 2>/dev/null | iconv -f CP850 | tr -d '\r' | sed -n 's/.* REG_[A-Z]* *//p'
}
has() { # has TEXT KEY [NAME]
    local expected=$1 found
    shift
    found=$(value "$@")
    [ "$found" = "$expected" ] || fail "$* is '$found', not '$expected'"
}

# The program writes its start for all users where it may, as Wine's only user may.
start_value() { value "HKLM\\$run_key" Murala; value "HKCU\\$run_key" Murala; }
starts() { # starts TEXT
    [ "$(start_value)" = "$1" ] || fail "Windows starts '$(start_value)', not '$1'"
}

registry() {
    local root
    for root in HKCU 'HKLM\Software'; do
        windows reg export "$root" "$work/export.reg" /y >/dev/null
        iconv -f UTF-16 -t UTF-8 "$work/export.reg" | tr -d '\r' |
            awk '/^\[/ { key = $0; print; next } NF { print key " " $0 }'
    done
}
# What Wine and its desktop write themselves while any program runs stays out, and so does the copy of
# itself that an NSIS program works as: it cannot delete that one, and the next one does.
snapshot() { # snapshot NAME
    registry | grep -viE 'Software\\(Classes|.*\\Uninstall)\]$|Software\\\\?Wine|\\Explorer\\|WineBus|\\Shell Folders|SessionInfo' |
        sort >"$work/$1.registry"
    (cd "$c" && find . -path ./windows -prune -o -path '*/Temp/~nsu*' -prune -o -printf '%y %P\n' | sort) >"$work/$1.files"
}
# differences BEFORE AFTER: what came (+) and went (-), in registry and folders.
differences() {
    diff <(cat "$work/$1."{registry,files}) <(cat "$work/$2."{registry,files}) | sed -n 's/^>/+/p; s/^</-/p'
}
nothing_left() { # nothing_left BEFORE AFTER PATTERN: that matches what may be
    local left
    left=$(differences "$1" "$2" | grep -vE "$3" || true)
    [ -z "$left" ] || fail "after $2: $left"
}

main_window() { xdotool search --onlyvisible --name '^Murala$' 2>/dev/null | tail -1; }
is_shown() { [ -n "$(main_window)" ]; }
murala_process() { xdotool getwindowpid "$(main_window)"; }
start_with_samples() { # start_with_samples FOLDER
    local sample samples=()
    for sample in "$1"/samples/*; do samples+=("$(windows winepath -w "$sample")"); done
    "$top/scripts/wine.sh" "$1/Murala.exe" "${samples[@]}" >/dev/null 2>&1 </dev/null &
    wait_for "the window" is_shown
    wait_for "the list" grep -q Waves "$1/Murala.Wallpaper.List"
    sleep 1
}
press() { # press WINDOW KEY...
    local window=$1
    shift
    xdotool windowactivate --sync "$window" key --delay 300 "$@"
    sleep 1
}
close_murala() {
    press "$(main_window)" alt+F4
    wait_for "the end of Murala" not is_shown
}

# installs_with_rights TEXT: what the setup asks for the standard folder, as Wine's server is told: TEXT,
# then full rights, handed down, for the user, administrators and the system.
installs_with_rights() {
    local all='\{type=ACCESS_ALLOWED,flags=3,mask=1f01ff,sid=S-1-5-'
    wineserver -k
    wineserver -w
    wineserver -f -d1 -p20 2>"$work/requests" &
    sleep 1
    expect 0 install
    grep -aqE "$1.*dacl=\{${all}21-[-0-9]+\},${all}32-544\},${all}18\}" "$work/requests" ||
        fail "the folder was not given its rights"
    rm "$work/requests"
}

tree_of() { (cd "$1" && find . -type f ! -name 'Murala.ini' -exec md5sum {} + | sort -k2); }

try_old_windows() {
    say "a Windows that is too old"
    windows winecfg /v win81
    expect 2 install
    [ ! -e "$murala" ] || fail "the setup has begun on too old a Windows"
    windows winecfg /v win10
}

try_installation() {
    say "installation"
    snapshot before
    installs_with_rights 'create_file\(.*control=00001004,owner=S-1-5-21-[-0-9]+,'
    [ "$(stat -c %a "$murala")" = 750 ] || fail "the folder has the rights $(stat -c %a "$murala")"
    snapshot installed
    differences before installed
    has '"C:\Murala\uninstall.exe"' "$uninstall_key" UninstallString
    [ -z "$(start_value)$(value "$verb_key")" ] || fail "the options are not off"
    [ -z "$(value 'HKCU\Software\Murala' InstalledProgram)" ] || fail "the standard folder is named"
}

try_update() {
    say "update of a copy that runs"
    start_with_samples "$murala"
    local before first
    first=$(murala_process)
    before=$(cat "$murala/Murala.Wallpaper.List")
    printf 'of old' >"$murala/help/index.html"
    printf 'help\\gone.html\r\n' >>"$murala/Setup.files"
    touch "$murala/help/"{gone,own}.html
    expect 0 install /STARTUP /EXPLORER
    wait_for "the new copy" is_shown
    [ "$(murala_process)" != "$first" ] || fail "the old copy still runs"
    [ "$(cat "$murala/Murala.Wallpaper.List")" = "$before" ] || fail "the list has changed"
    [ -s "$murala/Murala.ini" ] || fail "the settings are gone"
    grep -q 'of old' "$murala/help/index.html" && fail "the help was not replaced"
    [ ! -e "$murala/help/gone.html" ] || fail "a file that is no longer part of Murala is left"
    rm "$murala/help/own.html" || fail "a file of the user's is gone"
    starts 'C:\Murala\Murala.exe'
    has 'C:\Murala\Murala.exe "%1"' "$verb_key"
    [ ! -e "$murala/Setup.tmp" ] || fail "new files still lie aside"
}

try_open_dialog() {
    say "update and removal while a dialog is open"
    local before
    before=$(tree_of "$murala")
    press "$(main_window)" alt+h a
    expect 2 install
    expect 2 windows "$murala/uninstall.exe" /S '_?=C:\Murala'
    has '"C:\Murala\uninstall.exe"' "$uninstall_key" UninstallString
    is_shown || fail "the copy was ended"
    [ "$(tree_of "$murala")" = "$before" ] || fail "something was replaced or removed"
    xdotool key Escape
    sleep 3
    is_shown || fail "the copy ended afterwards"
}

try_kept_entries() {
    say "update of a copy that applies at the start and has settings for new users"
    close_murala
    windows reg add "HKLM\\$run_key" /v Murala /d 'C:\Murala\Murala.exe /apply' /f >/dev/null
    printf '[Main]\r\n' >>"$murala/Murala.default.ini"
    expect 0 install
    starts 'C:\Murala\Murala.exe /apply'
    grep -q Main "$murala/Murala.default.ini" || fail "the user's settings for new users were replaced"
    sleep 2
    is_shown && fail "a copy was started that did not run"
    return 0
}

try_second_setup() {
    say "a second setup beside the first"
    windows "$setup" >/dev/null 2>&1 &
    local first=$!
    wait_for "its page" xdotool search --onlyvisible --name '^Murala Setup'
    expect 2 install
    press "$(xdotool search --onlyvisible --name '^Murala Setup' | tail -1)" Escape Return
    wait "$first"
}

try_removal() {
    say "removal"
    remove "$murala"
    snapshot removed
    differences before removed
    nothing_left before removed '^\+ . Murala(/Murala\.(ini|default\.ini|Wallpaper\.List)|/Thumbnails(/.*)?)?$'
    [ -s "$murala/Murala.Wallpaper.List" ] || fail "the list is gone"
    say "installation beside the library, removal of both"
    expect 0 install
    remove "$murala" /PURGE
    snapshot purged
    nothing_left before purged '^$'
}

try_other_folder() {
    say "another folder"
    local folder="$c/Größere Programme/Murala"
    # Without quotes around the blank, which Wine would add.
    expect 0 install /STARTUP '/D=C:\Größere' 'Programme\Murala'
    has 'C:\Größere Programme\Murala\Murala.exe' 'HKCU\Software\Murala' InstalledProgram
    has '"C:\Größere Programme\Murala\Murala.exe" "%1"' "$verb_key"
    start_with_samples "$folder"
    expect 2 install '/D=C:\Elsewhere'
    expect 0 install
    wait_for "the new copy" is_shown
    remove "$folder" /PURGE
    is_shown && fail "the removed copy still runs"
    rmdir "$c/Größere Programme" || fail "the folder is not empty"
    snapshot elsewhere
    nothing_left before elsewhere '^$'
}

try_open_folder() {
    say "a standard folder of one's own that is open to all"
    mkdir -m 777 "$murala"
    installs_with_rights 'set_security_object\(.*security_info=80000004,'
    remove "$murala"
}

# Root is refused nothing.
try_refused_folder() {
    [ "$(id -u)" -ne 0 ] || return 0
    say "a machine where nobody may make the standard folder"
    chmod a-w "$c"
    expect 0 install
    [ -e "$own/Murala.exe" ] || fail "Murala is not in the user's own folder"
    has "C:\\users\\$USER\\AppData\\Local\\Programs\\Murala\\Murala.exe" 'HKCU\Software\Murala' InstalledProgram
    remove "$own"
    expect 2 install '/D=C:\Elsewhere'
    chmod u+w "$c"
}

# Only root can make a folder of somebody else.
try_foreign_folder() {
    local planted
    [ "$(id -u)" -eq 0 ] || return 0
    for planted in folder file; do
        say "a standard folder that somebody else has made ($planted)"
        mkdir "$murala"
        [ $planted = folder ] && chown 65534 "$murala"
        [ $planted = file ] && touch "$murala/version.dll" && chown 65534 "$murala/version.dll"
        expect 0 install
        [ -e "$own/Murala.exe" ] || fail "Murala is not in the user's own folder"
        [ ! -e "$murala/Murala.exe" ] || fail "Murala is in the other's folder"
        remove "$own"
        rm -r "$murala"
    done
}

export USER=${USER:-$(id -un)}
own="$c/users/$USER/AppData/Local/Programs/Murala"
windows wineboot >/dev/null 2>&1
try_old_windows
try_installation
try_update
try_open_dialog
try_kept_entries
try_second_setup
try_removal
try_other_folder
try_open_folder
try_refused_folder
try_foreign_folder
[ $failed -eq 0 ] && say "all as it should be"
exit $failed
