# Sourced: start_screen SIZE starts a virtual screen that ends with the script, and sets DISPLAY.
start_screen() {
    local number
    screen_folder=$(mktemp -d)
    : >"$screen_folder/display" # read below, perhaps before Xvfb has been started
    Xvfb -displayfd 3 -screen 0 "$1x24" -noreset -nolisten tcp 3>"$screen_folder/display" \
        2>"$screen_folder/log" &
    screen_pid=$!
    trap 'kill "$screen_pid" 2>/dev/null; rm -rf "$screen_folder"' EXIT
    for _ in $(seq 100); do
        number=$(cat "$screen_folder/display")
        [ -n "$number" ] && break
        sleep 0.1
    done
    [ -n "$number" ] || die "the virtual screen did not start: $(cat "$screen_folder/log")"
    export DISPLAY=:$number
    unset WAYLAND_DISPLAY
}
