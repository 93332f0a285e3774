#!/usr/bin/env bash
# Checks the house rules that no compiler sees: which folders may include which system's headers, that
# platform conditions stay in the platform folders, and that rooms only include rooms below them.
set -uo pipefail
cd "$(dirname "$0")/.."
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

# may_see ROOM FOLDER ROOMS_REGEX: headers of the house that the room includes from anywhere else.
may_see() {
    local room=$1 folder=$2 seen=$3 file header home
    grep -rnoE --include='*.cpp' --include='*.h' '#include "[^"]+"' "$folder" |
        sed -E 's/^([^:]+):[0-9]+:#include "([^"]+)"/\1 \2/' |
        while read -r file header; do
            home=$(find src -name "$(basename "$header")" -printf '%h\n' | head -1)
            [ -z "$home" ] && continue
            printf '%s\n' "$home" | grep -qE "^src/($room|$seen)(/|$)" ||
                printf '%s includes %s of %s\n' "$file" "$header" "$home"
        done | complain "$room sees more than it may"
}
may_see library src/library 'library'
may_see compose src/compose 'library'
may_see thumbnails src/thumbnails 'library|compose'
may_see desktop src/desktop 'library|compose'
may_see addons src/addons 'library|compose|thumbnails|desktop'
may_see startup src/startup 'library|desktop|compose'

# Unit names are include paths: each may exist once.
find src -name '*.h' -printf '%f\n' | sort | uniq -d | complain 'headers of the same name'

[ $failed -eq 0 ] && echo 'the rooms keep to themselves'
exit $failed
