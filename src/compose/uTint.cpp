#include "uTint.h"

#include "uDisplayMode.h"

#include <algorithm>
#include <array>
#include <vector>

namespace murala
{

namespace
{

using TTable = std::array<TPixel, 256>;

// One table a channel, its results shifted to where the channel stands in a pixel.
struct TTintTables {
    TTable Red, Green, Blue;

    explicit TTintTables(TTint tint)
    {
        for (unsigned channel = 0; channel < 256; ++channel) {
            const auto c = static_cast<std::uint8_t>(channel);
            Red[channel] = static_cast<TPixel>(TintChannel(c, tint.Red)) << 16U;
            Green[channel] = static_cast<TPixel>(TintChannel(c, tint.Green)) << 8U;
            Blue[channel] = TintChannel(c, tint.Blue);
        }
    }

    TPixel operator()(TPixel pixel) const
    {
        return (pixel & 0xFF000000U) | Red[(pixel >> 16U) & 0xFFU] | Green[(pixel >> 8U) & 0xFFU] |
               Blue[pixel & 0xFFU];
    }
};

void TintRow(TPixel* row, int width, const TTintTables& tables)
{
    std::transform(row, row + width, row, tables);
}

// The ramp's values at `position` of `extent`.
TTint RampAt(TTint start, TTint end, int position, int extent)
{
    const long double t = static_cast<long double>(position) / extent;
    const long double s = 1.0L - t;
    return {RoundHalfEven(start.Red * s + end.Red * t),
            RoundHalfEven(start.Green * s + end.Green * t),
            RoundHalfEven(start.Blue * s + end.Blue * t)};
}

TPixel TintPixel(TPixel pixel, TTint tint)
{
    const TPixel red = TintChannel(static_cast<std::uint8_t>(pixel >> 16U), tint.Red);
    const TPixel green = TintChannel(static_cast<std::uint8_t>(pixel >> 8U), tint.Green);
    const TPixel blue = TintChannel(static_cast<std::uint8_t>(pixel), tint.Blue);
    return (pixel & 0xFF000000U) | (red << 16U) | (green << 8U) | blue;
}

} // namespace

std::uint8_t TintChannel(std::uint8_t channel, int value)
{
    const int c = channel;
    const int result = value < 0 ? c * (value + 256) / 256 : c * (255 - value) / 255 + value;
    return static_cast<std::uint8_t>(result);
}

void ApplyTint(TBitmap& bitmap, const TMuWallpaper& item)
{
    const TTint start{item.GammaStartRed, item.GammaStartGreen, item.GammaStartBlue};
    const TTint end{item.GammaEndRed, item.GammaEndGreen, item.GammaEndBlue};
    switch (item.GammaStyle) {
    case gsSolid:
        return TintSolid(bitmap, start);
    case gsHorizontal:
        return TintHorizontal(bitmap, start, end);
    case gsVertical:
        return TintVertical(bitmap, start, end);
    default:
        return;
    }
}

void TintSolid(TBitmap& bitmap, TTint tint)
{
    TintRectangle(bitmap, {0, 0, bitmap.Width(), bitmap.Height()}, tint);
}

void TintHorizontal(TBitmap& bitmap, TTint start, TTint end)
{
    std::vector<TTint> ramp(static_cast<std::size_t>(bitmap.Width()));
    for (int x = 0; x < bitmap.Width(); ++x)
        ramp[static_cast<std::size_t>(x)] = RampAt(start, end, x, bitmap.Width());
    for (int y = 0; y < bitmap.Height(); ++y) {
        TPixel* row = bitmap.Row(y);
        std::transform(row, row + bitmap.Width(), ramp.begin(), row, TintPixel);
    }
}

void TintVertical(TBitmap& bitmap, TTint start, TTint end)
{
    for (int y = 0; y < bitmap.Height(); ++y)
        TintRow(bitmap.Row(y), bitmap.Width(),
                TTintTables(RampAt(start, end, y, bitmap.Height())));
}

void TintRectangle(TBitmap& bitmap, const TRect& rectangle, TTint tint)
{
    const int left = std::max(rectangle.Left, 0);
    const int right = std::min(rectangle.Right, bitmap.Width());
    if (left >= right)
        return;
    const TTintTables tables(tint);
    for (int y = std::max(rectangle.Top, 0); y < std::min(rectangle.Bottom, bitmap.Height()); ++y)
        TintRow(bitmap.Row(y) + left, right - left, tables);
}

} // namespace murala
