#!/usr/bin/env bash
# Checks the house rules that no compiler sees: which folders may include which system's headers, that
# platform conditions stay in the platform folders, and that rooms only include rooms below them.
set -uo pipefail
cd "$(dirname "$0")/.."
shopt -s lastpipe # complain, at a pipe's end, sets `failed` of this shell
failed=0

# complain TEXT: prints the lines that come in, if there are any.
complain() {
    local lines
    lines=$(cat)
    [ -z "$lines" ] && return
    printf '%s:\n%s\n' "$1" "$lines"
    failed=1
}

# outside PATTERN FOLDERS_REGEX: lines of src that match, in files outside of the folders.
outside() {
    grep -rnE --include='*.cpp' --include='*.h' "$1" src | grep -vE "^($2)"
}

outside '#\s*include\s*<wx/' 'src/shell/(forms|controls|program)/|src/addons/editor/' |
    complain 'wxWidgets is for forms, controls and the calendar editor'
outside '#\s*include\s*<(windows|shlobj|commctrl|shellapi|winreg|winuser|objbase)\.h>' \
    'src/(desktop|library)/windows/' |
    complain 'Win32 headers are for desktop/windows and library/windows'
outside '#\s*include\s*<(X11|gio|glib|pango|cairo)/' 'src/desktop/linux/' |
    complain 'X11, GIO and Pango are for desktop/linux'
outside '#\s*include\s*<(gdk|gtk)/' 'src/shell/controls/linux/' |
    complain 'GTK is for controls/linux'
outside '#\s*include\s*<(jpeglib|jerror)\.h>' 'src/compose/uJpegFile\.cpp' |
    complain 'libjpeg is for one file'
outside '#\s*(if|ifdef|ifndef|elif)\b.*(WIN32|_WIN64|__WX|__linux__|__unix__|__MINGW)' \
    'src/[a-z/]*(windows|linux)/' | complain 'platform conditions stay in platform folders'

# The house's headers by name, with their folders.
declare -A home
while read -r folder header; do home[$header]=$folder; done \
    < <(find src -name '*.h' -printf '%h %f\n')

# may_see FOLDER FOLDERS_REGEX: headers that files of FOLDER (and of the folders below) include from
# anywhere but there and the named folders of src.
may_see() {
    local folder=src/$1 allowed="^src/($1|$2)(/|$)" file header
    if [ ! -d "$folder" ]; then
        echo "there is no folder $folder" | complain 'a room is missing'
        return
    fi
    grep -rnoE --include='*.cpp' --include='*.h' '#include "[^"]+"' "$folder" |
        sed -E 's/^([^:]+):[0-9]+:#include "([^"]+)"/\1 \2/' |
        while read -r file header; do
            header=${header##*/}
            [ -z "${home[$header]:-}" ] && continue
            [[ ${home[$header]} =~ $allowed ]] ||
                printf '%s includes %s of %s\n' "$file" "$header" "${home[$header]}"
        done | complain "$1 sees more than it may"
}
may_see library 'library'
may_see compose 'library'
may_see thumbnails 'library|compose'
may_see desktop 'library|compose'
may_see addons 'library|compose|thumbnails|desktop|shell'
may_see startup 'library|desktop|compose'
for room in wallpaper tray icons session system common; do
    may_see desktop/linux/$room 'library|compose|desktop/linux/common|desktop$'
done

# Unit names are include paths: each may exist once.
find src -name '*.h' -printf '%f\n' | sort | uniq -d | complain 'headers of the same name'

[ $failed -eq 0 ] && echo 'the rooms keep to themselves'
exit $failed
