#!/usr/bin/env bash
# hand-off.sh PROGRAM [RUNNER]: starts copies of the program against each other. There is always exactly
# one left, and it has the files of all of them. RUNNER starts the program where it needs one.
set -uo pipefail
program=$(realpath "$1")
runner=${2:-}
rounds=${ROUNDS:-20}
work=$(mktemp -d)
pids=()
trap 'kill -9 "${pids[@]}" 2>/dev/null; wait 2>/dev/null; rm -rf "$work"' EXIT

export XDG_DATA_HOME=$work/data XDG_CONFIG_HOME=$work/config XDG_RUNTIME_DIR=$work/run
mkdir -p -m 700 "$work"/{data,config,run,home,pictures}
# Beside its settings the program is a portable copy: the list lies in its own folder in both homes.
cp "$program" "$work/home/"
touch "$work/home/Murala.ini"
program=$work/home/$(basename "$program")
list=$work/home/Murala.Wallpaper.List

fail() { printf 'FAILED: %s\n' "$*"; exit 1; }
start() {
    $runner "$program" "$@" >"$work/log" 2>&1 &
    pids+=($!)
}
alive() {
    local pid count=0
    for pid in "$@"; do kill -0 "$pid" 2>/dev/null && count=$((count + 1)); done
    echo $count
}
lines() { [ -e "$list" ] && wc -l <"$list" || echo 0; }
wait_for() { # wait_for SECONDS COMMAND...
    local tries=$(($1 * 10))
    shift
    for _ in $(seq "$tries"); do "$@" && return 0; sleep 0.1; done
    return 1
}
has_lines() { [ "$(lines)" -eq "$1" ]; }
one_is_left() { [ "$(alive "${pids[@]}")" -eq 1 ]; }
crash_all() {
    kill -9 "${pids[@]}" 2>/dev/null
    wait "${pids[@]}" 2>/dev/null
    pids=()
}

picture=$work/pictures/first.bmp
printf 'BM\x3a\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\x01\0\0\0\x01\0\0\0\x01\0\x18\0\0\0\0\0\x04\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\xff\0\0\0' >"$picture"
cp "$picture" "$work/pictures/second.bmp"

for round in $(seq "$rounds"); do
    rm -f "$list"
    start "$picture"
    start "$work/pictures/second.bmp"
    wait_for 30 has_lines 2 || fail "round $round: $(lines) of 2 files in the list; $(cat "$work/log")"
    wait_for 10 one_is_left || fail "round $round: $(alive "${pids[@]}") copies are running"
    # The next round also shows that a crashed copy does not stand in the way.
    [ "$round" -lt "$rounds" ] && crash_all
done
echo "$rounds times two starts at once: one copy, both files"

files=()
for number in $(seq 497); do files+=("$work/pictures/p$number.bmp"); done
files+=("$work/pictures/Grüße.bmp" "$work/pictures/it's.bmp")
for file in "${files[@]}"; do cp "$picture" "$file"; done
files+=("$work/pictures/missing.bmp")
start "${files[@]}"
wait_for 60 has_lines 501 || fail "$(lines) of 501 files in the list"
wait_for 10 one_is_left || fail "the second copy did not end"
wait "${pids[-1]}" || fail "the second copy ended with $?"
grep -q 'Grüße.bmp' "$list" || fail "the umlaut was lost"
grep -q "it's.bmp" "$list" || fail "the quote was lost"
grep -q missing "$list" && fail "a missing file was added"
echo "500 names, one of them missing: 499 handed over"

$runner "$program" /UNINSTALL >"$work/log" 2>&1 || fail "/UNINSTALL ended with $?"
[ -n "$runner" ] && exit 0

# Where neither a display nor the session's variables are: a remote shell, a package's script.
bare=(env -u DISPLAY -u WAYLAND_DISPLAY -u XDG_RUNTIME_DIR)
"${bare[@]}" "$program" /UNINSTALL || fail "/UNINSTALL without a display ended with $?"
cp "$picture" "$work/pictures/bare.bmp"
"${bare[@]}" "$program" "$work/pictures/bare.bmp" || fail "the bare hand-off ended with $?"
wait_for 30 has_lines 502 || fail "$(lines) of 502 files in the list"
echo "without a display: removed and handed over"

mkdir "$work/many"
for number in $(seq 10000); do ln "$picture" "$work/many/$number.bmp"; done
begin=$(date +%s%N)
"$program" "$work/many"/*.bmp || fail "handing 10000 names over ended with $?"
handed=$(date +%s%N)
wait_for 60 has_lines 10502 || fail "$(lines) of 10502 files in the list"
taken=$(date +%s%N)
echo "10000 names: handed over in $(((handed - begin) / 1000000)) ms, in the list after" \
    "$(((taken - begin) / 1000000)) ms"
[ $((taken - begin)) -lt 30000000000 ] || fail "that is too slow, even for a busy machine"

survivor=
for pid in "${pids[@]}"; do kill -0 "$pid" 2>/dev/null && survivor=$pid; done
rm "$list"
kill -TERM "$survivor"
wait "$survivor" || fail "SIGTERM: ended with $?"
has_lines 10502 || fail "SIGTERM: $(lines) of 10502 files were saved"
echo "SIGTERM saves and ends"
