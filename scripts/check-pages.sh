#!/usr/bin/env bash
# check-pages.sh: every link and picture of the pages exists, every picture is shown, and every page is in the
# navigation of every other one. What is wrong is printed, and the exit code is then 1.
set -euo pipefail
. "$(dirname "$0")/common.sh"
cd "$top/src/shell/pages"
wrong=0
fault() {
    printf '%s\n' "$*"
    wrong=1
}

check_target() { # check_target PAGE TARGET
    local page=$1 file=${2%%#*} mark=
    [[ $2 == *'#'* ]] && mark=${2#*#}
    file=$(dirname "$page")/${file:-$(basename "$page")}
    [ -f "$file" ] || { fault "$page: $2 is not there"; return; }
    [ -z "$mark" ] || grep -q "id=\"$mark\"" "$file" || fault "$page: $2 has no such place"
}

for page in *.html help/*.html; do
    while read -r target; do
        check_target "$page" "$target"
    done < <(grep -oP '(?<=href="|src=")[^"]*' "$page" | grep -v '^https\?:')
done
for page in help/*.html; do
    for other in help/*.html; do
        grep -q "<a href=\"${other#help/}\"" "$page" || fault "$page: no way to $other"
    done
    [ "$(grep -c 'aria-current' "$page")" -eq 1 ] || fault "$page: its own entry is not marked"
done
for picture in help/*.png; do
    grep -q "src=\"${picture#help/}\"" help/*.html || fault "$picture: is on no page"
done
[ "$(cat help/* | wc -c)" -lt 600000 ] || fault "the help is larger than 600 kB"
[ "$wrong" -ne 0 ] || echo "the pages lead where they say"
exit "$wrong"
