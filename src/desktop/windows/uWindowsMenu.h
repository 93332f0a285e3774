// The tray's menu as a menu of Windows.
#pragma once

#include "uTrayIcon.h"

#include <windows.h>

namespace murala
{

TMenuMetrics SystemMenuMetrics();

// Shows it at the place on the screen and waits until it is closed. What was chosen.
TMenuTarget TrackMenu(TTrayModel& model, TPoint place, HWND owner);

} // namespace murala
