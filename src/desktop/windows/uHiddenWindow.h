// An invisible window of our own, which receives messages.
#pragma once

#include "uWindowsHandles.h"

namespace murala
{

// `onMessage` finds `data` in the window's GWLP_USERDATA, which is still 0 while the window is
// made. Null when the system can make no more windows.
TWindow NewHiddenWindow(const char* className, WNDPROC onMessage, void* data);

} // namespace murala
