// What the headers of a BMP file say about its pixels.
#pragma once

#include "uBitmap.h"

#include <array>
#include <cstdio>

namespace murala
{

// One colour channel of a pixel of 16 or 32 bits.
class TBmpChannel
{
public:
    TBmpChannel() = default;
    explicit TBmpChannel(std::uint32_t mask);

    // Scaled to 0..255, rounded.
    TPixel operator()(std::uint32_t pixel) const
    {
        const std::uint32_t value = (pixel & m_mask) >> m_shift;
        return value < m_scaled.size() ? m_scaled[value] : Scaled(value);
    }

private:
    TPixel Scaled(std::uint32_t value) const;

    std::uint32_t m_mask = 0;
    int m_shift = 0;
    std::array<std::uint8_t, 256> m_scaled{};
};

struct TBmpHeader {
    // Throws EImageFormat.
    explicit TBmpHeader(std::FILE* file);

    TSize Size;
    bool IsTopDown = false;
    int BitCount = 0;
    bool IsRunLength = false;
    long PixelOffset = 0;
    std::array<TPixel, 256> Palette{}; // black where the file has no entry
    TBmpChannel Red, Green, Blue;

    // Bytes of a row in the file (not of a run-length picture).
    long Stride() const;
};

} // namespace murala
