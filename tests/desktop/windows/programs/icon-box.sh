#!/usr/bin/env bash
# icon-box.sh WINE Fakes.exe Murala.exe: Murala applies a grey picture with the icon box, of both types,
# beside shells of both kinds with two icons, and the picture that it saves is looked at.
set -euo pipefail
wine=$1 fakes=$2 murala=$3
pids=()
end() { # end PROGRAM
    "$wine" taskkill /f /im "$1" >/dev/null 2>&1 || true
}
finish() {
    end Murala.exe
    end "$(basename "$fakes")"
    kill "${pids[@]}" 2>/dev/null || true
}
. "$(dirname "$0")/screen.sh"

# shows X,Y GREY...: the pixels of the saved picture.
shows() {
    while [ $# -gt 0 ]; do
        [ "$(convert "$folder/MuralaWallpaper.bmp[1x1+${1%,*}+${1#*,}]" -depth 8 \
            -format '%[fx:round(255*u.r)]' info: 2>/dev/null)" = "$2" ] || return 1
        shift 2
    done
}

start() { # start PROGRAM [ARGUMENT...]: on the desktop of both
    "$wine" explorer "/desktop=Icons$$,640x480" "$@" &
    pids+=($!)
}

cp "$murala" "$folder/Murala.exe"
convert -size 640x480 xc:'gray(100)' BMP3:"$folder/grey.bmp"
for shell in Progman Modern; do
    start "$(windows_name "$fakes")" $shell "$(windows_name "$folder/log")"
    sleep 3
    for only_icons in 0 1; do
        rm -f "$folder/MuralaWallpaper.bmp" "$folder/log"
        printf '"%s","grey","Stretched","0","0","","0","0","0","0","0","0","(None)","0 0 0","x"\r\n' \
            "$(windows_name "$folder/grey.bmp")" >"$folder/Murala.Wallpaper.List"
        printf '[Main]\r\nUseIconBox=1\r\nIconBoxGamma=128\r\nIconBoxBorder=1\r\nIconBoxOnlyIcons=%s\r\nWallpaperCurrent=grey\r\n' \
            $only_icons >"$folder/Murala.ini"
        start "$(windows_name "$folder/Murala.exe")" /apply
        # Outside, on the frame of the box (5, 25, 353, 183), between the icons, behind the icons.
        if [ $only_icons = 0 ]; then
            eventually shows 4,100 100 5,100 255 352,100 255 150,100 177 40,50 177 320,150 177
        else
            eventually shows 4,100 100 5,100 100 352,100 100 150,100 100 40,50 177 320,150 177
        fi
        [ "$(grep -A2 '^55 0 0' "$folder/log" | tr -d '\r' | head -3 | paste -sd,)" = \
            "55 0 0,54 512 -1,54 512 32" ] || { cat "$folder/log" >&2; exit 1; }
        end Murala.exe
    done
    end "$(basename "$fakes")"
done
