#!/usr/bin/env bash
# try-desktops.sh [-i] [NAME...]: starts each desktop on a virtual screen, has Murala apply eight
# pictures, one after the other, and looks at the pixels each time; restarts the desktop's shell,
# closes Murala, and looks again; once it measures how long the window does not answer while it
# applies a picture. Prints a line a desktop. Names: lxde lxqt mate xfce plasma cinnamon
# gnome gnome-wayland budgie sway x11 and, with a second monitor (a real X server with the dummy
# driver), x11-2 xfce-2 lxqt-2 lxde-2 mate-2; sway-2 has two outputs, one of them scaled, and
# gnome-wayland-2 one at 200 %. With -i the packages that they need are installed first. Screenshots stay in
# $TRY_FOLDER (/tmp/try-desktops); a desktop has $TRY_LIMIT seconds (900).
set -uo pipefail
. "$(dirname "$0")/common.sh"

names=(x11 xfce lxde lxqt mate budgie cinnamon plasma gnome gnome-wayland sway x11-2 xfce-2 lxqt-2
    lxde-2 mate-2 gnome-wayland-2 sway-2)
declare -A packages=(
    [x11]="openbox" [lxde]="openbox pcmanfm" [lxqt]="openbox pcmanfm-qt lxqt-panel lxqt-themes"
    [mate]="marco mate-settings-daemon caja dconf-cli dconf-gsettings-backend"
    [xfce]="xfwm4 xfconf xfdesktop4 xfce4-panel" [budgie]="budgie-desktop"
    [plasma]="plasma-desktop plasma-workspace kwin-x11 breeze"
    [cinnamon]="cinnamon nemo muffin xapp-sn-watcher"
    [gnome]="gnome-shell gnome-settings-daemon" [gnome-wayland]="gnome-shell xwayland python3-dbusmock python3-dbus"
    [sway]="sway swaybg grim xwayland"
)
# What starts a desktop (DESKTOP), and what of it is killed and started again (SHELL), as bash.
xfconfd=$(find /usr/lib -name xfconfd -type f 2>/dev/null | head -1)
declare -A environment=(
    [lxde]="XDG_CURRENT_DESKTOP=LXDE"
    [lxqt]="XDG_CURRENT_DESKTOP=LXQt XDG_CONFIG_DIRS=/etc:/etc/xdg:/usr/share"
    [mate]="XDG_CURRENT_DESKTOP=MATE" [xfce]="XDG_CURRENT_DESKTOP=XFCE"
    [plasma]="XDG_CURRENT_DESKTOP=KDE KDE_FULL_SESSION=true KDE_SESSION_VERSION=5 QT_QPA_PLATFORM=xcb"
    [cinnamon]="XDG_CURRENT_DESKTOP=X-Cinnamon XDG_SESSION_DESKTOP=cinnamon DESKTOP_SESSION=cinnamon XDG_SESSION_TYPE=x11"
    [gnome]="XDG_CURRENT_DESKTOP=GNOME XDG_SESSION_TYPE=x11"
    [gnome-wayland]="XDG_CURRENT_DESKTOP=GNOME XDG_SESSION_TYPE=wayland"
    [budgie]="XDG_CURRENT_DESKTOP=Budgie:GNOME XDG_SESSION_TYPE=x11" [sway]="XDG_CURRENT_DESKTOP=sway" [x11]="XDG_CURRENT_DESKTOP="
)
declare -A desktop=(
    [x11]="openbox" [lxde]="openbox" [lxqt]="openbox" [mate]="marco; mate-settings-daemon"
    [xfce]="$xfconfd; xfwm4" [plasma]="kwin_x11" [budgie]="budgie-wm --replace"
    [cinnamon]="" [gnome]="gsettings set org.gnome.shell welcome-dialog-last-shown-version 99"
)
declare -A shell=(
    [x11]="" [lxde]="pcmanfm --desktop --profile LXDE" [lxqt]="pcmanfm-qt --desktop --profile=lxqt"
    [mate]="caja -n --force-desktop" [xfce]="xfdesktop" [plasma]="plasmashell"
    [budgie]="budgie-panel --replace" [cinnamon]="cinnamon-session --session=cinnamon"
    [gnome]="gnome-shell --x11 --replace --unsafe-mode"
)
declare -A settle=([plasma]=14 [gnome]=16 [cinnamon]=18 [budgie]=10)
# Where no icons, panels or windows of ours lie, in thousandths of the screen.
points=(250,100 880,150 150,850 880,850)

# Colours of the four quadrants of each picture; the eighth is a small one on this colour.
palette=('#c03020' '#20a040' '#2040c0' '#c0b020' '#a020a0' '#20a0a0' '#806040' '#4060a0')
around='#305070'
colour() { echo "${palette[$((($1 + $2) % 8))]}"; }

make_pictures() { # make_pictures FOLDER
    local i
    mkdir -p "$1"
    for i in 0 1 2 3 4 5 6; do
        convert -size 960x540 "xc:$(colour "$i" 0)" "xc:$(colour "$i" 1)" +append \
            \( "xc:$(colour "$i" 2)" "xc:$(colour "$i" 3)" +append \) -append \
            -resize '1920x1080!' "BMP3:$1/$i.bmp"
    done
    convert -size 400x300 "xc:$(colour 7 0)" "BMP3:$1/7.bmp"
}

make_list() { # make_list HOME PICTURES: the library and the settings, as Murala writes them
    local i data=$1/.local/share/murala mode=Stretched
    mkdir -p "$data"
    for i in 0 1 2 3 4 5 6 7; do
        [ "$i" -eq 7 ] && mode=Centered
        printf '"%s","%s","%s","0","0","","0","0","0","0","0","0","(None)","48 80 112","x"\r\n' \
            "$2/$i.bmp" "$i" "$mode"
    done >"$data/Murala.Wallpaper.List"
    printf '[Main]\r\nWallpaperCurrent=\r\nWindowState=0\r\n' >"$data/Murala.ini"
}

screenshot() { # screenshot FILE [OUTPUT]
    case $name in
        gnome-wayland*)
            gdbus call --session --dest org.gnome.Shell.Screenshot \
                --object-path /org/gnome/Shell/Screenshot \
                --method org.gnome.Shell.Screenshot.Screenshot false false "$1" >/dev/null 2>&1 ;;
        sway*) grim ${2:+-o "$2"} "$1" 2>/dev/null ;;
        *) import -silent -window root "$1" ;;
    esac
}

# near COLOUR COLOUR: the same but for what a conversion of colours may cost.
near() {
    local i a=${1#\#} b=${2#\#} difference
    for i in 0 2 4; do
        difference=$((16#${a:i:2} - 16#${b:i:2}))
        [ "${difference#-}" -le 6 ] || return 1
    done
}

pixel() { # pixel FILE X Y
    convert "$1[1x1+$2+$3]" -depth 8 -format '#%[hex:u.p{0,0}]' info: | cut -c1-7
}

# shows NUMBER X Y WIDTH HEIGHT: whether the monitor there shows the picture.
shows() {
    local number=$1 left=$2 top=$3 width=$4 height=$5 point i=0 x y wanted shot=$work/shot.png
    rm -f "$shot"
    screenshot "$shot" "${6:-}"
    [ -s "$shot" ] || return 1
    for point in "${points[@]}"; do
        x=$((left + width * ${point%,*} / 1000)) y=$((top + height * ${point#*,} / 1000))
        wanted=$(colour "$number" $(((${point%,*} > 500 ? 1 : 0) + (${point#*,} > 500 ? 2 : 0))))
        [ "$number" -eq 7 ] && wanted=$around
        near "$(pixel "$shot" $x $y)" "$wanted" || { problem="picture $number: $(pixel "$shot" $x $y) at $x,$y, not $wanted"; return 1; }
        i=$((i + 1))
    done
}

all_show() { # all_show NUMBER: on every monitor, within ten seconds
    local try monitor
    for try in $(seq 20); do
        problem=
        for monitor in "${monitors[@]}"; do
            shows "$1" $monitor || break
        done
        [ -z "$problem" ] && [ -s "$work/shot.png" ] && return 0
        sleep 0.5
    done
    return 1
}

start_shell() {
    [ -z "${shell[$kind]}" ] && return
    ${shell[$kind]} >>"$work/log" 2>&1 &
    shell_pid=$!
    pids+=("$shell_pid")
    sleep "${settle[$kind]:-5}"
    # Some desktops see a second output only once its server was asked for it.
    [[ $name == *-2 ]] && xrandr >/dev/null && sleep 3
    [ "$kind" = gnome ] && xdotool key Escape # out of its overview
    return 0
}

restart_shell() {
    case $kind in
        sway) swaymsg reload >/dev/null; sleep 3; return ;;
        gnome-wayland) return ;; # its shell is the compositor
    esac
    [ -z "${shell[$kind]}" ] && return
    kill "$shell_pid" 2>/dev/null
    sleep 2
    kill -9 "$shell_pid" 2>/dev/null
    [ "$kind" = plasma ] && sleep 2
    start_shell
}

# Everything twice as large, on the same pixels.
double_scale() {
    python3 - <<'PY'
import dbus
config = dbus.Interface(
    dbus.SessionBus().get_object('org.gnome.Mutter.DisplayConfig', '/org/gnome/Mutter/DisplayConfig'),
    'org.gnome.Mutter.DisplayConfig')
serial, monitors, logical, properties = config.GetCurrentState()
connector = monitors[0][0][0]
mode = next(each[0] for each in monitors[0][1] if each[6].get('is-current', False))
config.ApplyMonitorsConfig(
    serial, dbus.UInt32(1),
    dbus.Array([(0, 0, dbus.Double(2.0), dbus.UInt32(0), True,
                 dbus.Array([(connector, mode, dbus.Dictionary({}, 'sv'))], '(ssa{sv})'))],
               '(iiduba(ssa{sv}))'),
    dbus.Dictionary({}, 'sv'))
PY
}

# Inside the session's bus, with HOME, DISPLAY and so on of its own.
inside() {
    local number waited= good=0 restarted=no closed=no width height composed
    pids=()
    problem=
    trap 'kill "${pids[@]}" 2>/dev/null; sleep 1; kill -9 "${pids[@]}" 2>/dev/null' EXIT
    case $kind in
        sway)
            # Here a window covers all of its workspace.
            printf '%s\n' 'xwayland enable' 'output HEADLESS-1 mode 1920x1080' \
                'assign [title="^Murala$"] 9' >"$work/sway"
            [ "$name" = sway-2 ] &&
                printf 'output HEADLESS-2 mode 2560x1440 scale 1.5\n' >>"$work/sway"
            WLR_BACKENDS=headless WLR_LIBINPUT_NO_DEVICES=1 WLR_RENDERER=pixman \
                WLR_HEADLESS_OUTPUTS=$([ "$name" = sway-2 ] && echo 2 || echo 1) \
                sway -c "$work/sway" >>"$work/log" 2>&1 &
            pids+=($!)
            sleep 4
            SWAYSOCK=$(ls "$XDG_RUNTIME_DIR"/sway-ipc.* | head -1)
            WAYLAND_DISPLAY=$(ls "$XDG_RUNTIME_DIR" | grep -x 'wayland-[0-9]*' | head -1)
            export SWAYSOCK WAYLAND_DISPLAY ;;
        gnome-wayland)
            python3 -m dbusmock --system --template logind >/dev/null 2>&1 &
            pids+=($!)
            sleep 2
            gnome-shell --wayland --headless --unsafe-mode --virtual-monitor 3840x2160 \
                --wayland-display wl-1 >"$work/shell.log" 2>&1 &
            pids+=($!)
            sleep 16
            [ "$name" = gnome-wayland-2 ] && double_scale && sleep 3
            export WAYLAND_DISPLAY=wl-1
            unset DISPLAY ;;
        *)
            local command
            while read -r command; do
                [ -n "$command" ] && { $command >>"$work/log" 2>&1 & pids+=($!); sleep 1; }
            done < <(tr ';' '\n' <<<"${desktop[$kind]}")
            sleep $([ "$kind" = budgie ] && echo 6 || echo 2)
            start_shell ;;
    esac
    # Each start applies the next picture, as a log-in does, and goes on running.
    for number in 0 1 2 3 4 5 6 7; do
        set_current "$number"
        "$murala" /apply >>"$work/log" 2>&1 &
        local program=$!
        pids+=("$program")
        if all_show "$number"; then good=$((good + 1)); else failures+="$problem; "; fi
        [ "$number" -eq 2 ] && keep_shot && waited=$(longest_wait)
        if [ "$number" -lt 7 ]; then
            sleep 1
            kill "$program"
            wait "$program" 2>/dev/null
        fi
    done
    restart_shell
    all_show 7 && restarted=yes || failures+="after the restart $problem; "
    kill "$program" 2>/dev/null
    wait "$program" 2>/dev/null
    sleep 2
    all_show 7 && closed=yes || failures+="after closing $problem; "
    # In the pixels of the (first) monitor.
    read -r _ _ width height _ <<<"${monitors[0]}"
    composed=$(identify -format '%wx%h' "$HOME/.local/share/murala/MuralaWallpaper.bmp")
    [ "$composed" = "${width}x$height" ] || failures+="composed as $composed; "
    printf '| %s | %s of 8 | %s | %s | %s | %s |\n' "$name" "$good" "$restarted" "$closed" \
        "${waited:--}" "${failures:-none}" >"$work/result"
}

# How long the window may leave a question unanswered while it applies the next picture, in
# milliseconds; nothing where there is no X server to ask through.
longest_wait() {
    local window before data=$HOME/.local/share/murala/MuralaWallpaper.bmp
    [ -n "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ] || return 0
    window=$(xdotool search --onlyvisible --name '^Murala$' 2>/dev/null | head -1)
    [ -n "$window" ] || return 0
    before=$(stat -c %Y "$data")
    xdotool windowactivate "$window" 2>/dev/null
    sleep 1
    xdotool key Down
    sleep 2
    (sleep 0.5; xdotool key ctrl+Return) &
    python3 - "$window" >"$work/wait" <<'PY'
import ctypes, sys, time
x = ctypes.CDLL('libX11.so.6')
x.XOpenDisplay.restype = ctypes.c_void_p
x.XInternAtom.restype = x.XDefaultRootWindow.restype = ctypes.c_ulong

class Message(ctypes.Structure):
    _fields_ = [('type', ctypes.c_int), ('serial', ctypes.c_ulong), ('send_event', ctypes.c_int),
                ('display', ctypes.c_void_p), ('window', ctypes.c_ulong),
                ('message_type', ctypes.c_ulong), ('format', ctypes.c_int),
                ('data', ctypes.c_long * 5), ('rest', ctypes.c_long * 12)]

display = ctypes.c_void_p(x.XOpenDisplay(None))
window, root = int(sys.argv[1]), x.XDefaultRootWindow(display)
protocols = x.XInternAtom(display, b'WM_PROTOCOLS', 0)
ping = x.XInternAtom(display, b'_NET_WM_PING', 0)
client_message, substructure = 33, 1 << 19
x.XSelectInput(display, ctypes.c_ulong(root), ctypes.c_long(substructure))

def wait(number):
    """Seconds until the window has answered the ping."""
    sent = Message(type=client_message, window=window, message_type=protocols, format=32)
    sent.data[:3] = [ping, number, window]
    begin = time.monotonic()
    x.XSendEvent(display, ctypes.c_ulong(window), 0, ctypes.c_long(0), ctypes.byref(sent))
    x.XFlush(display)
    event = Message()
    while time.monotonic() - begin < 10:
        if not x.XPending(display):
            time.sleep(0.001)
            continue
        x.XNextEvent(display, ctypes.byref(event))
        if event.type == client_message and event.data[0] == ping and event.data[1] == number:
            return time.monotonic() - begin
    return 10.0

end, number, longest = time.monotonic() + 5, 0, 0.0
while time.monotonic() < end:
    number += 1
    longest = max(longest, wait(number))
    time.sleep(0.005)
print(round(longest * 1000))
PY
    wait $!
    [ "$(stat -c %Y "$data")" = "$before" ] && echo 'not applied' || echo "$(cat "$work/wait") ms"
}

# With the window, which a second start brings to the front.
keep_shot() {
    "$murala"
    sleep 3
    screenshot "$folder/$name.png"
}

# The current wallpaper, and of the eighth its mode and colour, in Murala's own files.
set_current() {
    local data=$HOME/.local/share/murala
    sed -i "s|^WallpaperCurrent=.*|WallpaperCurrent=$work/pictures/$1.bmp|" "$data/Murala.ini"
    sed -i 's/^WindowState=.*/WindowState=0/' "$data/Murala.ini"
}

start_server() { # an X server; two monitors need a real one
    mkfifo "$work/display"
    if [[ $name == *-2 && $name != *way* ]]; then
        cat >"$work/xorg.conf" <<'CONF'
Section "Device"
    Identifier "card"
    Driver "dummy"
    VideoRam 256000
EndSection
Section "Monitor"
    Identifier "monitor"
    HorizSync 5.0-1000.0
    VertRefresh 5.0-200.0
    Modeline "1920x1080" 148.50 1920 2008 2052 2200 1080 1084 1089 1125
    Modeline "1280x1024" 108.00 1280 1328 1440 1688 1024 1025 1028 1066
EndSection
Section "Screen"
    Identifier "screen"
    Device "card"
    Monitor "monitor"
    DefaultDepth 24
    SubSection "Display"
        Depth 24
        Modes "1920x1080" "1280x1024"
        Virtual 3200 1200
    EndSubSection
EndSection
CONF
        Xorg -config "$work/xorg.conf" -logfile "$work/xorg.log" -displayfd 3 -noreset \
            -nolisten tcp -novtswitch -sharevts vt7 3<>"$work/display" 2>/dev/null &
    else
        Xvfb -displayfd 3 -screen 0 1920x1080x24 -noreset -nolisten tcp 3<>"$work/display" \
            2>/dev/null &
    fi
    server=$!
    local number
    read -r -t 20 number <"$work/display" || return 1
    export DISPLAY=:$number
    [[ $name == *-2 && $name != *way* ]] || return 0
    xrandr --addmode DUMMY1 1280x1024 2>/dev/null
    xrandr --output DUMMY1 --mode 1280x1024 --pos 1920x0
}

try() {
    name=$1 kind=${1%-2} server=
    work=$folder/work-$name
    rm -rf "$work"
    mkdir -p "$work/home" "$work/run" && chmod 700 "$work/run"
    (
        export HOME=$work/home XDG_RUNTIME_DIR=$work/run NO_AT_BRIDGE=1 LIBGL_ALWAYS_SOFTWARE=1
        unset XDG_DATA_HOME XDG_CONFIG_HOME WAYLAND_DISPLAY SWAYSOCK DBUS_SESSION_BUS_ADDRESS
        # shellcheck disable=SC2163
        for each in ${environment[$kind]}; do export "$each"; done
        start_server || { echo "| $name | no server | | | | |" >"$work/result"; exit; }
        trap 'kill "$server"' EXIT
        make_pictures "$work/pictures"
        make_list "$HOME" "$work/pictures"
        cp "$murala" "$work/murala"
        murala=$work/murala
        monitors=("0 0 1920 1080")
        case $name in
            sway) monitors=("0 0 1920 1080 HEADLESS-1") ;;
            sway-2) monitors=("0 0 1920 1080 HEADLESS-1" "0 0 2560 1440 HEADLESS-2") ;;
            gnome-wayland*) monitors=("0 0 3840 2160") ;;
            *-2) monitors=("0 0 1920 1080" "1920 0 1280 1024") ;;
        esac
        export name kind work folder murala
        system=()
        case $kind in
            budgie | cinnamon | gnome | gnome-wayland)
                eval "$(dbus-daemon --session --fork --print-address=1 --print-pid=1 |
                    { read -r a; read -r p; echo "DBUS_SYSTEM_BUS_ADDRESS='$a'; system_pid=$p"; })"
                export DBUS_SYSTEM_BUS_ADDRESS
                trap 'kill "$server" "$system_pid"' EXIT ;;
        esac
        as_user=()
        if [ "$kind" = sway ]; then
            unset DISPLAY
            touch "$work/log"
            [ "$(id -u)" -ne 0 ] || as_user=(setpriv --reuid 65534 --regid 65534 --clear-groups)
            [ "$(id -u)" -ne 0 ] || chown -R 65534:65534 "$work"
        fi
        declare -p name kind work folder murala monitors shell desktop settle points palette around \
            >"$work/state"
        declare -f >>"$work/state"
        timeout -k 5 "${TRY_LIMIT:-900}" ${as_user[@]+"${as_user[@]}"} dbus-run-session -- bash -c \
            ". '$work/state'; failures=; inside" >>"$work/log" 2>&1
    )
    cat "$work/result" 2>/dev/null || echo "| $name | did not come to an end | | | | |"
}

murala=$(realpath "$top/build/linux-release/murala")
folder=${TRY_FOLDER:-/tmp/try-desktops}
mkdir -p "$folder"
install=no
[ "${1:-}" = -i ] && install=yes && shift
[ $# -gt 0 ] && names=("$@")
echo '| Desktop | Pictures | After a restart of the shell | After closing | Longest wait | Problems |'
echo '| --- | --- | --- | --- | --- | --- |'
for each in "${names[@]}"; do
    needed="${packages[${each%-2}]} xvfb xdotool imagemagick dbus x11-xserver-utils python3-minimal"
    [[ $each == *-2 && $each != *way* ]] && needed+=" xserver-xorg-core xserver-xorg-video-dummy"
    # shellcheck disable=SC2086
    [ $install = yes ] && install_packages $needed
    try "$each"
done
