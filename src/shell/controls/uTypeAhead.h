// Finds the row whose title begins with what is typed.
#pragma once

#include "uWallpaperView.h"

#include <wx/event.h>

namespace murala
{

class TTypeAhead
{
public:
    // A blank counts as a letter only within a word.
    bool IsLetter(const wxKeyEvent& event) const;
    // Adds the letter to those typed shortly before. Returns the next row behind the focused one
    // whose title begins with them, -1 when there is none.
    int Find(const wxKeyEvent& letter, const TRows& rows, int focusedRow);
    // Whether the last letter was typed a moment ago.
    bool IsTyping() const;

private:
    wxString m_typed;
    wxLongLong m_typedAt;
};

} // namespace murala
