#!/usr/bin/env bash
# build.sh PRESET [target...]: configures where needed, then builds into build/PRESET.
set -euo pipefail
. "$(dirname "$0")/common.sh"
preset=$1
shift
cd "$top"
if [ "${preset%%-*}" = windows ]; then
    MURALA_WINDOWS_DEPS=$(scripts/windows-deps.sh)
    export MURALA_WINDOWS_DEPS
    # Libraries made anew stand under another name.
    grep -qsF "$MURALA_WINDOWS_DEPS" "build/$preset/CMakeCache.txt" || rm -rf "build/$preset"
fi
if [ ! -e "build/$preset/build.ninja" ]; then
    cmake --preset "$preset" -DCMAKE_C_COMPILER_LAUNCHER=ccache \
        -DCMAKE_CXX_COMPILER_LAUNCHER=ccache >/dev/null
fi
cmake --build "build/$preset" --parallel "$jobs" ${@:+--target "$@"}
