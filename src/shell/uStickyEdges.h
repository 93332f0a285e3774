// A window that is dragged near an edge of the work area snaps to it.
#pragma once

#include "uGeometry.h"

namespace murala
{

inline constexpr int StickyDistance = 10; // at 96 dots an inch

// Moves the window to those edges that it is nearer to than `distance`; its size stays.
TRect SnapToEdges(TRect window, const TRect& workArea, int distance);

// How much of a window's frame nobody sees, at each of its sides.
struct THiddenFrame {
    int Left = 0, Top = 0, Right = 0, Bottom = 0;
};

// The same for what the user sees of the window.
TRect SnapToEdges(const TRect& window, const THiddenFrame& hidden, const TRect& workArea,
                  int distance);

} // namespace murala
