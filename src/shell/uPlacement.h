// Where a window goes that was left on other screens than there are today.
#pragma once

#include "uGeometry.h"

#include <vector>

namespace murala
{

// `areas` are the screens' work areas, the primary one first; not empty. A window whose corners, by
// no more than `tolerance` pixels, lie on screens stays where it was (the frame's invisible borders
// reach over an edge). Any other is moved into the area that it shares most with, in the middle of
// the primary one where there is none, and made no larger than that.
TRect FitToScreens(const TRect& window, const std::vector<TRect>& areas, int tolerance);

// What is left of a screen where its task bar stands, docked to an edge, that its work area counts.
TRect WithoutTaskBar(TRect area, const TRect& bar);

} // namespace murala
