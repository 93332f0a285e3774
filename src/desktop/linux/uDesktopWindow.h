#pragma once

#include "uGeometry.h"

#include <optional>

namespace murala
{

// The size of the window with which a program of this class (WM_CLASS) draws the desktop; nothing
// when it has none.
std::optional<TSize> DesktopWindowSize(const char* programClass);

} // namespace murala
