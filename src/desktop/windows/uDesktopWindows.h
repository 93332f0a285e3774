// Finds the windows of the shell: the desktop's icon list and the task bar. Null when there is
// none.
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

// Dots an inch on the task bar's monitor; the user may change it while the program runs.
UINT TaskBarDpi();

} // namespace murala
