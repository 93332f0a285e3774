#!/usr/bin/env bash
# kill-test.sh KILLS PROGRAM [arguments]: kills the saving program at random moments; each new start
# of it checks what the killed one has left.
set -euo pipefail
kills=$1
shift
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

fail() { printf 'kill-test: %s\n' "$*" >&2; exit 1; }

half=0
for ((number = 0; number <= kills; ++number)); do # the last start checks the last kill
    rm -f "$folder/saving"
    "$@" "$folder" &
    program=$!
    until [ -e "$folder/saving" ]; do
        kill -0 $program 2>/dev/null || fail "after $number kills the program gave up"
        sleep 0.005
    done
    sleep "$(printf '0.%03d' $((RANDOM % 60)))"
    kill -KILL $program || fail "the program ended by itself"
    wait $program 2>/dev/null || true
    # A new file that was not yet in its place: the kill came in the middle of saving.
    if compgen -G "$folder/*.new" >/dev/null; then
        half=$((half + 1))
    fi
done

saved=$(wc -l <"$folder/acknowledged")
[ "$saved" -gt $((kills / 4)) ] || fail "only $saved versions were saved"
[ "$half" -gt 0 ] || fail "no kill came in the middle of saving"
echo "$kills kills, $half of them in the middle of saving, $saved versions saved; nothing was lost"
