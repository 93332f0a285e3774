#include "uPlacement.h"

#include <algorithm>
#include <cstdint>

namespace murala
{

namespace
{

bool Contains(const TRect& area, int x, int y)
{
    return x >= area.Left && x <= area.Right && y >= area.Top && y <= area.Bottom;
}

std::int64_t SharedPixels(const TRect& a, const TRect& b)
{
    const std::int64_t width = std::min(a.Right, b.Right) - std::max(a.Left, b.Left);
    const std::int64_t height = std::min(a.Bottom, b.Bottom) - std::max(a.Top, b.Top);
    return std::max<std::int64_t>(width, 0) * std::max<std::int64_t>(height, 0);
}

bool IsOnScreens(const TRect& window, const std::vector<TRect>& areas, int tolerance)
{
    const auto isSeen = [&](int x, int y) {
        return std::ranges::any_of(areas, [=](const TRect& area) { return Contains(area, x, y); });
    };
    const int left = window.Left + tolerance, right = window.Right - tolerance;
    const int top = window.Top + tolerance, bottom = window.Bottom - tolerance;
    return isSeen(left, top) && isSeen(right, top) && isSeen(left, bottom) && isSeen(right, bottom);
}

} // namespace

TRect WithoutTaskBar(TRect area, const TRect& bar)
{
    if (SharedPixels(area, bar) == 0)
        return area;
    const bool isAcross = bar.Width() > bar.Height();
    if (isAcross && bar.Top > area.Top)
        area.Bottom = bar.Top;
    else if (isAcross)
        area.Top = bar.Bottom;
    else if (bar.Left > area.Left)
        area.Right = bar.Left;
    else
        area.Left = bar.Right;
    return area;
}

TRect FitToScreens(const TRect& window, const std::vector<TRect>& areas, int tolerance)
{
    if (IsOnScreens(window, areas, tolerance))
        return window;
    const auto sharesLess = [&](const TRect& a, const TRect& b) {
        return SharedPixels(window, a) < SharedPixels(window, b);
    };
    const TRect& area = *std::ranges::max_element(areas, sharesLess);
    const int width = std::min(window.Width(), area.Width());
    const int height = std::min(window.Height(), area.Height());
    int left = std::clamp(window.Left, area.Left, area.Right - width);
    int top = std::clamp(window.Top, area.Top, area.Bottom - height);
    if (SharedPixels(window, area) == 0) {
        left = area.Left + (area.Width() - width) / 2;
        top = area.Top + (area.Height() - height) / 2;
    }
    return {left, top, left + width, top + height};
}

} // namespace murala
