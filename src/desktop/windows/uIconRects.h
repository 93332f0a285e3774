// Where the icons of another program's list are.
#pragma once

#include "uIconView.h"

#include <windows.h>

namespace murala
{

inline constexpr const char* SilentDesktopText = "The desktop does not answer.";

// Asks the list, icon by icon, for the rectangles of its icons and labels, on the screen. It waits
// three seconds at the most.
TIconRegion AskForIconRects(HWND list);

} // namespace murala
