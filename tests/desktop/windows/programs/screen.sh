# For the scripts beside it: a screen of their own. They define finish, which ends what they started.
folder=$(mktemp -d)
mkfifo "$folder/display"
Xvfb -displayfd 3 -screen 0 640x480x24 -noreset -nolisten tcp 3<>"$folder/display" 2>/dev/null &
screen=$!
trap 'finish; kill "$screen"; rm -rf "$folder"' EXIT
read -r number <"$folder/display"
export DISPLAY=:$number

# eventually COMMAND...: repeats it until it succeeds, for 30 seconds at the most.
eventually() {
    for _ in $(seq 150); do
        "$@" && return
        sleep 0.2
    done
    echo "in vain: $*" >&2
    return 1
}

windows_name() { "$wine" winepath -w "$1"; }
