// Where the window goes when the screens have changed since it was closed.
#pragma once

#include "uGeometry.h"

#include <vector>

namespace murala
{

// `areas` are the screens' work areas, the primary one first; not empty. A window whose corners all
// lie on screens, or at most `tolerance` pixels beside them, stays (a frame's invisible borders
// reach over an edge). Any other window is moved into the area that it shares most with, or to the
// middle of the primary one, and made no larger than the area.
TRect FitToScreens(const TRect& window, const std::vector<TRect>& areas, int tolerance);

// Some work areas still count a docked task bar: returns what is left of the screen without it.
TRect WithoutTaskBar(TRect area, const TRect& bar);

} // namespace murala
