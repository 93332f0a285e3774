#!/usr/bin/env bash
# ./test.sh [--since COMMIT] [linux] [windows]: sets everything up, runs all tests of both homes or of
# one, and checks the source files that differ from the commit - by default from the last tag, else from
# the commit before - with clang-tidy.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh
. scripts/screen.sh
usage="usage: ./test.sh [--since COMMIT] [linux] [windows]"
since=$(git describe --tags --abbrev=0 2>/dev/null || echo HEAD~1)
if [ "${1:-}" = --since ]; then
    since=${2:?$usage}
    shift 2
fi
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

scripts/setup.sh run screen lint
export LC_ALL=C.UTF-8
summaries=$(mktemp -d)
start_screen 1280x1024
# Without a window manager windows wait in vain to be placed.
openbox >/dev/null 2>&1 &
failed=()
for home in "$@"; do
    case $home in
        linux | windows) ;;
        *) die "$usage" ;;
    esac
    # A failing home must not keep the other from being tested.
    set +e
    (set -e; "test_$home")
    [ $? -eq 0 ] || failed+=("$home")
    set -e
done

scripts/lint.sh "$since" || failed+=("lint")

for home in "$@"; do
    [ -e "$summaries/$home-release" ] || continue
    printf '\n== %s\n' "$home"
    sed -n '/tests passed/,$p' "$summaries/$home-release"
done
[ ${#failed[@]} -eq 0 ] || die "failed: ${failed[*]}"
