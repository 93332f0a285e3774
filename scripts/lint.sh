#!/usr/bin/env bash
# lint.sh [COMMIT]: checks that every source file has the house's format, and that clang-tidy finds
# nothing in those that differ from COMMIT (by default the last tag; where there is none, in any).
# clang-tidy reads a file of a windows folder as the Windows home compiles it, all others as Linux does.
set -euo pipefail
. "$(dirname "$0")/common.sh"
cd "$top"
since=${1:-$(git describe --tags --abbrev=0 2>/dev/null || true)}
failed=0

# sources: of the names that come in, those of C++ files that are there.
sources() {
    local file
    sort -u | { grep -E '\.(cpp|h)$' || true; } | while read -r file; do
        [ ! -e "$file" ] || echo "$file"
    done
}

# What clang has to be told of the Windows compiler: its target, and the folders of its headers.
windows_arguments() {
    echo --extra-arg-before=--target=x86_64-w64-mingw32
    x86_64-w64-mingw32-g++-posix -xc++ -E -v - </dev/null 2>&1 | sed -n '/^#include </,/^End of/s/^ //p' |
        grep -E '/c\+\+|mingw32/include$' | sed 's/^/--extra-arg=-isystem/'
}

# tidy PRESET [ARGUMENT...]: has clang-tidy check the files whose names come in.
tidy() {
    local preset=$1 files
    shift
    mapfile -t files
    [ ${#files[@]} -gt 0 ] || return 0
    if [ ! -e "build/$preset/compile_commands.json" ]; then
        say "${#files[@]} files are not checked by clang-tidy: there is no build/$preset"
        return
    fi
    say "clang-tidy reads ${#files[@]} files of $preset"
    # It counts what it finds in the system's headers, too.
    printf '%s\0' "${files[@]}" |
        xargs -0 -P "$jobs" -n 1 clang-tidy-14 -p "build/$preset" --quiet "$@" 2>&1 |
        sed -E '/^[0-9]+ warnings?( and [0-9]+ errors?)? generated\.$/d' || failed=1
}

git ls-files -co --exclude-standard | sources | xargs clang-format-14 --dry-run -Werror || failed=1

if [ -n "$since" ]; then
    changed=$({ git diff --name-only "$since" -- && git ls-files -o --exclude-standard; } | sources)
else
    changed=$(git ls-files -co --exclude-standard '*.cpp')
fi
tidy linux-release < <(grep -v '/windows/' <<<"$changed" | grep .)
mapfile -t arguments < <(windows_arguments)
tidy windows-release "${arguments[@]}" < <(grep '/windows/' <<<"$changed")
exit $failed
