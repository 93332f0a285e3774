// Finds the row whose title begins with what is typed.
#pragma once

#include "uWallpaperView.h"

#include <wx/event.h>

namespace murala
{

class TTypeAhead
{
public:
    // A blank is one only within a word.
    bool IsLetter(const wxKeyEvent& event) const;
    // Adds the letter to those typed shortly before. The row behind the focused one that begins so,
    // -1 when there is none.
    int Find(const wxKeyEvent& letter, const TRows& rows, int focusedRow);
    // A moment ago.
    bool IsTyping() const;

private:
    wxString m_typed;
    wxLongLong m_typedAt;
};

} // namespace murala
