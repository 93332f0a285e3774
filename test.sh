#!/usr/bin/env bash
# Sets everything up and runs all tests: ./test.sh for both homes, ./test.sh linux or windows for one.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh
. scripts/screen.sh
[ $# -gt 0 ] || set -- linux windows

run_ctest() {
    local preset=$1
    shift
    ctest --test-dir "build/$preset" --output-on-failure --no-tests=error "$@" 2>&1 |
        tee "$summaries/$preset"
}

test_linux() {
    scripts/setup.sh linux
    scripts/build.sh linux-release
    say "core tests and the monkey under the sanitizers"
    scripts/build.sh linux-asan
    LSAN_OPTIONS=suppressions=$PWD/tests/leaks.supp:print_suppressions=0 \
        run_ctest linux-asan -L 'core|monkey'
    say "fuzzing"
    scripts/build.sh linux-fuzz
    run_ctest linux-fuzz
    say "tests on Linux"
    run_ctest linux-release
}

test_windows() {
    scripts/setup.sh windows
    scripts/build.sh windows-release
    say "tests on Windows"
    run_ctest windows-release
}

scripts/setup.sh run screen
export LC_ALL=C.UTF-8
summaries=$(mktemp -d)
start_screen 1280x1024
# Without a window manager windows wait in vain to be placed.
openbox >/dev/null 2>&1 &
failed=()
for home in "$@"; do
    case $home in
        linux | windows) ;;
        *) die "usage: ./test.sh [linux] [windows]" ;;
    esac
    # A failing home must not keep the other from being tested.
    set +e
    (set -e; "test_$home")
    [ $? -eq 0 ] || failed+=("$home")
    set -e
done

for home in "$@"; do
    [ -e "$summaries/$home-release" ] || continue
    printf '\n== %s\n' "$home"
    sed -n '/tests passed/,$p' "$summaries/$home-release"
done
[ ${#failed[@]} -eq 0 ] || die "failed: ${failed[*]}"
