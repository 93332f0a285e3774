// Snaps a window to the edges of the work area while it is dragged.
#pragma once

#include "uGeometry.h"

namespace murala
{

inline constexpr int StickyDistance = 10; // at 96 dots an inch

// Moves the window to the edges that are nearer than `distance`; its size stays.
TRect SnapToEdges(TRect window, const TRect& workArea, int distance);

// The invisible part of a window's frame at each side.
struct THiddenFrame {
    int Left = 0, Top = 0, Right = 0, Bottom = 0;
};

// The same for the visible part of the window.
TRect SnapToEdges(const TRect& window, const THiddenFrame& hidden, const TRect& workArea,
                  int distance);

} // namespace murala
