#pragma once

namespace murala
{

// Whether a program of this class (WM_CLASS) has a window that is the desktop.
bool HasDesktopWindow(const char* programClass);

} // namespace murala
