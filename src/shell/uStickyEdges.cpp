#include "uStickyEdges.h"

#include <cstdlib>

namespace murala
{

namespace
{

// How far to move along one axis. The near edge goes first: a window as wide as the area is near
// both.
int Snap(int from, int to, int areaFrom, int areaTo, int distance)
{
    if (std::abs(from - areaFrom) < distance)
        return areaFrom - from;
    return std::abs(to - areaTo) < distance ? areaTo - to : 0;
}

} // namespace

TRect SnapToEdges(TRect window, const TRect& workArea, int distance)
{
    const int right = Snap(window.Left, window.Right, workArea.Left, workArea.Right, distance);
    const int down = Snap(window.Top, window.Bottom, workArea.Top, workArea.Bottom, distance);
    return {window.Left + right, window.Top + down, window.Right + right, window.Bottom + down};
}

TRect SnapToEdges(const TRect& window, const THiddenFrame& hidden, const TRect& workArea,
                  int distance)
{
    const TRect seen = SnapToEdges({window.Left + hidden.Left, window.Top + hidden.Top,
                                    window.Right - hidden.Right, window.Bottom - hidden.Bottom},
                                   workArea, distance);
    return {seen.Left - hidden.Left, seen.Top - hidden.Top, seen.Right + hidden.Right,
            seen.Bottom + hidden.Bottom};
}

} // namespace murala
