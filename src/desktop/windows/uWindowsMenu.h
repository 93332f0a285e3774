// Menus of Windows made from ours.
#pragma once

#include "uTrayIcon.h"

#include <windows.h>

namespace murala
{

TMenuMetrics SystemMenuMetrics();

// Shows it at the place on the screen and waits until it is closed. The chosen entry, null for
// none.
const TMenuItem* TrackMenu(const TMenuItem& menu, TPoint place, HWND owner);

} // namespace murala
