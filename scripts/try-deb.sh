#!/usr/bin/env bash
# try-deb.sh [PACKAGE.deb]: installs the Debian package (by default the newest in dist/) in a minimal Debian, uses it
# there as an ordinary user, removes it, and compares what lies in the file system before and after. The minimal
# Debian is made once, in the cache (MURALA_CACHE), from the package archive that this machine uses. Needs root.
set -euo pipefail
. "$(dirname "$0")/common.sh"
. "$top/scripts/screen.sh"
[ "$(id -u)" -eq 0 ] || exec sudo "$0" "$@"
deb=${1:-$(ls -t "$top"/dist/murala_*_amd64.deb 2>/dev/null | head -n 1)} || true
[ -e "$deb" ] || die "there is no package: ./package.sh linux makes it"
deb=$(realpath "$deb")
base=$cache/debian-minimal
user=tester
# What apt, dpkg and ldconfig write about themselves; what systemd, which comes with the dependencies, makes;
# what the next start of the system clears; and the user's files.
kept='^(/var/(cache|log|lib/apt|lib/dpkg)/|/etc/ld\.so\.cache |/var/lib/(systemd|private)[ /]|/etc/machine-id |'
kept+='/etc/mtab |/root/\.ssh |/run/|/home/|/tmp/murala-)'

make_base() {
    [ ! -e "$base/complete" ] || return 0
    local mirror
    mirror=$(apt-get indextargets --format '$(SITE) $(RELEASE)' 'Created-By: Packages' |
        awk '$2 == "bookworm" { print $1; exit }')
    say "making a minimal Debian"
    rm -rf "$base"
    mkdir -p "$base"
    # What reads manuals and completes is the user's, not of the package.
    debootstrap --variant=minbase --include=man-db,bash-completion bookworm "$base" "$mirror" >"$base.log" ||
        die "see $base.log"
    chroot "$base" useradd --create-home --shell /bin/bash $user
    : >"$base/complete"
}

# inside COMMAND...: in the copy, with what programs expect; it is unmounted when the command ends.
inside() {
    unshare --mount --propagation private sh -c '
        root=$1
        shift
        mount -t proc proc "$root/proc"
        mount --rbind /dev "$root/dev"
        exec chroot "$root" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 \
            DEBIAN_FRONTEND=noninteractive "$@"' sh "$root" "$@"
}
as_user() {
    inside su - $user -c "$1"
}

# expect TEXT COMMAND: that the command, as the user, succeeds and prints the text.
expect() {
    local text=$1 printed
    printed=$(as_user "$2" 2>&1) || die "failed: $2: $printed"
    [[ $printed == *"$text"* ]] || die "$2 does not print \"$text\" but: $printed"
}

files() {
    find "$root" -xdev -printf '/%P %y %m %l\n' | grep -vE "$kept" | sort
}

check_programs() {
    local version
    version=$(dpkg-deb --field "$deb" Version)
    expect "Murala $version" 'murala --version'
    expect "murala-compose $version" 'murala-compose --version'
    expect 'pictures on the desktop' 'man --warnings=w murala'
    expect 'without a window' 'man --warnings=w murala-compose'
    expect 'ok' 'murala-compose /usr/share/murala/samples/Waves.bmp Tiled 64x48 /tmp/out.bmp \
        --calendar /dev/null && test -s /tmp/out.bmp && echo ok'
    as_user 'rm /tmp/out.bmp'
    expect '/apply' "$(completes murala /a)"
    expect 'Landscape.jpg' "$(completes murala /usr/share/murala/samples/L)"
    expect 'Mirror\ Tiled' "$(completes murala-compose a.jpg M)"
    expect 'Mirror Tiled' "$(completes murala-compose a.jpg \"M)"
    expect '1920x1080' "$(completes murala-compose a.jpg 1 19)"
    expect '--tint' "$(completes murala-compose a.jpg 1 9x9 out.bmp --t)"
    expect 'Vertical' "$(completes murala-compose a.jpg 1 9x9 out.bmp --tint V)"
    expect '--date' "$(completes murala-compose a.jpg 1 9x9 out.bmp --color 1 2 3 --d)"
    say "programs, manuals and completion are as they should be"
}

# completes WORD...: a command that prints what bash offers for the last word of such a line.
completes() {
    printf 'bash -c '\''. /usr/share/bash-completion/bash_completion; _completion_loader %s;
        COMP_WORDS=(%s) COMP_CWORD=%s COMP_LINE="%s"; COMP_POINT=${#COMP_LINE};
        _%s; printf "%%s\\n" "${COMPREPLY[@]}"'\' \
        "$1" "$(printf '%q ' "$@")" "$(($# - 1))" "${*//\"/\\\"}" "${1//-/_}"
}

# That it shows its window and takes in the samples.
check_window() {
    local window
    as_user "DISPLAY=$DISPLAY timeout 60 murala /usr/share/murala/samples/*" >"$work/murala.log" 2>&1 &
    wait_until xdotool search --onlyvisible --name '^Murala$' ||
        die "no window came: $(cat "$work/murala.log")"
    window=$(xdotool search --onlyvisible --name '^Murala$' | head -1)
    sleep 2
    import -window root "$work/window.png"
    kill "$(xdotool getwindowpid "$window")"
    wait $! || true
    local list=/home/$user/.local/share/murala/Murala.Wallpaper.List
    [ "$(wc -l <"$root$list")" -eq 4 ] || die "the samples are not in the list"
    cp "$work/window.png" "$top/build/try-deb.png"
    say "the window came, with the samples: $top/build/try-deb.png"
}

"$top/scripts/setup.sh" screen
install_packages debootstrap
make_base
work=$(mktemp -d)
root=$work/root
start_screen 1280x1024
trap 'kill "$screen_pid" 2>/dev/null; rm -rf "$screen_folder" "$work"' EXIT
cp -a "$base" "$root"
files >"$work/before"
cp "$deb" "$root/var/cache/murala.deb"
inside apt-get update -qq
inside apt-get install -qq --no-install-recommends /var/cache/murala.deb >"$work/log" 2>&1 ||
    die "it could not be installed: $(cat "$work/log")"
check_programs
check_window
inside sh -c 'apt-get purge -qq murala && apt-get autoremove -qq --purge' >"$work/log" 2>&1 ||
    die "it could not be removed: $(cat "$work/log")"
files >"$work/after"
diff "$work/before" "$work/after" || die "these files remained"
test -s "$root/home/$user/.local/share/murala/Murala.ini" || die "the user's settings are gone"
say "removed without a trace; the user's data is still there"
