#include "uTint.h"

#include "uDisplayMode.h"

#include <algorithm>
#include <array>
#include <vector>

namespace murala
{

namespace
{

// What one byte of a pixel is tinted with: floor(byte * Scale * Divide / 2^23) + Add. Divide stands
// for a division by 256 or by 255; both are exact for every product that can occur. All products
// fit into 16 bits or are the upper half of one, so that the compiler works on eight bytes at once.
struct TFactor {
    std::uint16_t Scale, Divide, Add;
};

constexpr std::uint16_t By256 = (1U << 23U) / 256;
constexpr std::uint16_t By255 = (1U << 23U) / 255 + 1;

constexpr TFactor FactorOf(int value)
{
    const auto v = static_cast<std::uint16_t>(value);
    if (value < 0)
        return {static_cast<std::uint16_t>(v + 256), By256, 0};
    return {static_cast<std::uint16_t>(255 - v), By255, v};
}

constexpr TFactor Unchanged = {256, By256, 0};

constexpr std::uint8_t Tinted(std::uint8_t byte, std::uint16_t scale, std::uint16_t divide,
                              std::uint16_t add)
{
    const auto product = static_cast<std::uint16_t>(byte * scale);
    const auto upper = static_cast<std::uint16_t>((std::uint32_t{product} * divide) >> 16U);
    return static_cast<std::uint8_t>((upper >> 7U) + add);
}

// The factors of every byte of some neighbouring pixels.
class TFactorRow
{
public:
    explicit TFactorRow(int pixels)
        : m_scale(std::size_t{4} * pixels), m_divide(m_scale.size()), m_add(m_scale.size())
    {
    }

    int Pixels() const { return static_cast<int>(m_scale.size() / 4); }

    void Set(int x, TTint tint)
    {
        const TFactor factors[] = {FactorOf(tint.Blue), FactorOf(tint.Green), FactorOf(tint.Red),
                                   Unchanged};
        std::size_t i = std::size_t{4} * x;
        for (const TFactor& factor : factors) {
            m_scale[i] = factor.Scale;
            m_divide[i] = factor.Divide;
            m_add[i++] = factor.Add;
        }
    }

    // At most Pixels() pixels.
    void Tint(TPixel* pixels, int count) const
    {
        auto* bytes = reinterpret_cast<std::uint8_t*>(pixels);
        for (int i = 0; i < 4 * count; ++i)
            bytes[i] = Tinted(bytes[i], m_scale[i], m_divide[i], m_add[i]);
    }

private:
    std::vector<std::uint16_t> m_scale, m_divide, m_add;
};

// The same tint for any number of pixels.
class TEvenTint
{
public:
    void Set(TTint tint)
    {
        for (int x = 0; x < m_factors.Pixels(); ++x)
            m_factors.Set(x, tint);
    }

    void Tint(TPixel* pixels, int count) const
    {
        for (int x = 0; x < count; x += m_factors.Pixels())
            m_factors.Tint(pixels + x, std::min(m_factors.Pixels(), count - x));
    }

private:
    TFactorRow m_factors{32};
};

// The ramp's values at `position` of `extent`.
TTint RampAt(TTint start, TTint end, int position, int extent)
{
    const long double t = static_cast<long double>(position) / extent;
    const long double s = 1.0L - t;
    const auto value = [=](int from, int to) {
        return static_cast<int>(RoundHalfEven(from * s + to * t));
    };
    return {value(start.Red, end.Red), value(start.Green, end.Green), value(start.Blue, end.Blue)};
}

} // namespace

std::uint8_t TintChannel(std::uint8_t channel, int value)
{
    const TFactor factor = FactorOf(value);
    return Tinted(channel, factor.Scale, factor.Divide, factor.Add);
}

void ApplyTint(TBitmap& bitmap, const TMuWallpaper& item)
{
    const TTint start = item.StartTint(), end = item.EndTint();
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
    TFactorRow ramp(bitmap.Width());
    for (int x = 0; x < bitmap.Width(); ++x)
        ramp.Set(x, RampAt(start, end, x, bitmap.Width()));
    for (int y = 0; y < bitmap.Height(); ++y)
        ramp.Tint(bitmap.Row(y), bitmap.Width());
}

void TintVertical(TBitmap& bitmap, TTint start, TTint end)
{
    TEvenTint tint;
    for (int y = 0; y < bitmap.Height(); ++y) {
        tint.Set(RampAt(start, end, y, bitmap.Height()));
        tint.Tint(bitmap.Row(y), bitmap.Width());
    }
}

void TintRectangle(TBitmap& bitmap, const TRect& rectangle, TTint tint)
{
    const int left = std::max(rectangle.Left, 0);
    const int right = std::min(rectangle.Right, bitmap.Width());
    if (left >= right)
        return;
    TEvenTint even;
    even.Set(tint);
    for (int y = std::max(rectangle.Top, 0); y < std::min(rectangle.Bottom, bitmap.Height()); ++y)
        even.Tint(bitmap.Row(y) + left, right - left);
}

TTint WithChannel(TTint tint, TChannel channel, int value)
{
    const auto set = [&](TChannel which, int& target) {
        if (channel == which || channel == TChannel::All)
            target = value;
    };
    set(TChannel::Red, tint.Red);
    set(TChannel::Green, tint.Green);
    set(TChannel::Blue, tint.Blue);
    return tint;
}

} // namespace murala
