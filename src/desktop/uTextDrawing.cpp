#include "uTextDrawing.h"

#include <algorithm>
#include <cstdlib>

namespace murala
{

namespace
{

constexpr int DotsPerInch = 96, PointsPerInch = 72;
constexpr int MaxPoints = 3000; // four times as high as a screen

} // namespace

int FontPixels(int points)
{
    const int size = std::clamp(points, -MaxPoints, MaxPoints);
    return std::max(1, (std::abs(size) * DotsPerInch + PointsPerInch / 2) / PointsPerInch);
}

// The margin is for letters that lean out of their line, or that come from another, larger font.
TRect TextPart(TTextDrawing& drawing, const TMuFont& font, const std::string& text, int x, int y,
               const TRect& clip, const TBitmap& bitmap)
{
    const TSize size = drawing.Measure(font, text);
    const int margin = size.Height;
    return VisiblePart({x - margin, y - margin, x + size.Width + margin, y + size.Height + margin},
                       clip, bitmap);
}

TRect VisiblePart(const TRect& area, const TRect& clip, const TBitmap& bitmap)
{
    const TRect part{std::max({area.Left, clip.Left, 0}), std::max({area.Top, clip.Top, 0}),
                     std::min({area.Right, clip.Right, bitmap.Width()}),
                     std::min({area.Bottom, clip.Bottom, bitmap.Height()})};
    return part.Left < part.Right && part.Top < part.Bottom ? part : TRect{};
}

} // namespace murala
