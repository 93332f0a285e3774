# Sourced by the other scripts: where things lie and how root is asked for.
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cache=${MURALA_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/murala}
jobs=$(nproc)
# Checkouts in different folders share what was compiled.
export CCACHE_DIR=$cache/ccache CCACHE_BASEDIR=$top CCACHE_NOHASHDIR=1

say() { printf '== %s\n' "$*" >&2; }
die() { printf '%s: %s\n' "$(basename "$0")" "$*" >&2; exit 1; }

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

# wait_until COMMAND...: whether the command succeeds within twenty seconds.
wait_until() {
    local _
    for _ in $(seq 200); do
        "$@" >/dev/null 2>&1 && return
        sleep 0.1
    done
    return 1
}

# install_packages NAME...: asks the package manager only when one of them is missing.
install_packages() {
    local missing=() name
    for name in "$@"; do
        dpkg-query -W -f='${Status}' "$name" 2>/dev/null | grep -q 'install ok installed' ||
            missing+=("$name")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    say "installing ${missing[*]}"
    as_root apt-get update -qq
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
        "${missing[@]}" >/dev/null
}
