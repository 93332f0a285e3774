// A menu of ours, shown with the toolkit's means.
#pragma once

#include "uTrayModel.h"

#include <wx/gdicmn.h>

namespace murala
{

// At the place on the screen, whether the program has a visible window or not; waits until the menu
// is closed. What was chosen.
TMenuTarget PopupMenuAt(TTrayModel& model, const wxPoint& place);

} // namespace murala
