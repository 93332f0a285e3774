// The windows of the shell: the desktop's icon list and the task bar. Each is null when it is not
// there.
#pragma once

#include <windows.h>

#include <string_view>

namespace murala
{

// A direct child whose class is exactly `name`.
HWND FindChildWindowByClass(HWND parent, std::string_view name);

HWND FindProgman();
HWND FindDesktopView();
HWND FindDesktopListView();
HWND FindTaskBar();

// Dots an inch where the task bar is, which the user may change while the program runs.
UINT TaskBarDpi();

} // namespace murala
