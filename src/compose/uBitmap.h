// The bitmap that every picture is worked on in.
#pragma once

#include "uColor.h"
#include "uGeometry.h"
#include "uPicture.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace murala
{

// What a picture may have; larger ones are refused. With sides below 2^20 every product of the
// geometry fits into 64 bits.
inline constexpr int MaxSide = 1 << 20;
inline constexpr std::int64_t MaxPixels = 1 << 28;
constexpr bool IsUsable(TSize size)
{
    return size.Width >= 0 && size.Width <= MaxSide && size.Height >= 0 && size.Height <= MaxSide &&
           std::int64_t{size.Width} * size.Height <= MaxPixels;
}

// One pixel: bytes in memory blue, green, red, unused.
using TPixel = std::uint32_t;

inline TPixel ColorToPixel(TColor color)
{
    return ((color & 0xFFU) << 16U) | (color & 0xFF00U) | ((color >> 16U) & 0xFFU);
}

// Rows top-down, without padding. New pixels are not set.
class TBitmap : public TPicture
{
public:
    TBitmap() = default;
    // Throws EInvalidImage when the size is not usable.
    TBitmap(int width, int height);
    TBitmap(TBitmap&&) noexcept = default;
    TBitmap& operator=(TBitmap&&) noexcept = default;

    int Width() const { return m_size.Width; }
    int Height() const { return m_size.Height; }
    TSize Size() const { return m_size; }
    TPixel* Row(int y) { return m_pixels.get() + static_cast<std::size_t>(y) * m_size.Width; }
    const TPixel* Row(int y) const
    {
        return m_pixels.get() + static_cast<std::size_t>(y) * m_size.Width;
    }
    TBitmap Copy() const;

private:
    TSize m_size;
    std::unique_ptr<TPixel[]> m_pixels;
};

} // namespace murala
