// A window of our own that nobody sees, for messages.
#pragma once

#include "uWindowsHandles.h"

namespace murala
{

// `data` is the window's GWLP_USERDATA; messages of its creation come before that is set. Null when
// the system has no more windows.
TWindow NewHiddenWindow(const char* className, WNDPROC onMessage, void* data);

} // namespace murala
