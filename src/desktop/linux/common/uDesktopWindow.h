#pragma once

#include "uGeometry.h"

#include <optional>
#include <string>

namespace murala
{

// The size of the window with which a program of this class (WM_CLASS) draws the desktop; nothing
// when it has none.
std::optional<TSize> DesktopWindowSize(const char* programClass);

// The class of the program that draws the desktop in a window over the root window, at least as
// large as one of the monitors; empty when there is none.
std::string DesktopWindowClass();

} // namespace murala
