// What the toolkit leaves to the window system of each home.
#pragma once

#include <wx/string.h>

class wxTopLevelWindow;
class wxWindow;

namespace murala
{

// Right before a window is shown for the first time, when its size has been set.
void PrepareFirstShow(wxTopLevelWindow& window);

// What a screen reader says of a control of our own: what it stands on, and how that is.
void SetAccessibleText(wxWindow& window, const wxString& name, const wxString& description);

// For a control without a label of its own.
void SetAccessibleName(wxWindow& window, const wxString& name);

} // namespace murala
