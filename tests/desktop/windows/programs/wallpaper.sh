#!/usr/bin/env bash
# wallpaper.sh WINE Fakes.exe: sets two pictures, one after the other and under the same name, in a
# Windows desktop of its own, and compares what its screen shows with them. A corner is left out: the
# mouse pointer and the task bar may lie there.
set -euo pipefail
wine=$1 fakes=$2
program=
finish() {
    [ -z "$program" ] || kill "$program" 2>/dev/null || true
}
. "$(dirname "$0")/screen.sh"

# visible FILE OUT: the compared part of a picture, as raw pixels.
visible() {
    convert "$1" -crop 300x300+20+20 +repage -depth 8 rgb:"$2"
}

shows() {
    import -window root "$folder/screen.png"
    visible "$folder/screen.png" "$folder/shown"
    visible "$1" "$folder/wanted"
    cmp -s "$folder/shown" "$folder/wanted"
}

# expect PICTURE: it is set, and the screen shows it.
expect() {
    if eventually grep -qs '^set' "$folder/log" && eventually shows "$1"; then
        return
    fi
    cp "$folder/screen.png" "${TMPDIR:-/tmp}/murala-wallpaper-test.png"
    echo "the desktop does not show $1; see ${TMPDIR:-/tmp}/murala-wallpaper-test.png" >&2
    return 1
}

convert -size 640x480 gradient:red-blue BMP3:"$folder/first.bmp"
convert -size 640x480 plasma:green-yellow BMP3:"$folder/second.bmp"
cp "$folder/first.bmp" "$folder/Wällpaper 1.bmp"
picture=$(windows_name "$folder/Wällpaper 1.bmp")
"$wine" explorer "/desktop=Murala$$,640x480" "$(windows_name "$fakes")" wallpapers \
    "$(windows_name "$folder/log")" "$picture" "$picture" &
program=$!
expect "$folder/first.bmp"
cp "$folder/second.bmp" "$folder/Wällpaper 1.bmp"
rm "$folder/log"
expect "$folder/second.bmp"
rm "$folder/log"
wait "$program"
program=
