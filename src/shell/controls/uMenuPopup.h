// A menu of ours, shown with the toolkit's means.
#pragma once

#include "uMenuItem.h"

#include <wx/gdicmn.h>

namespace murala
{

// At the place on the screen, whether the program has a visible window or not; waits until the menu
// is closed. The chosen entry, null for none.
const TMenuItem* PopupMenuAt(const TMenuItem& menu, const wxPoint& place);

} // namespace murala
