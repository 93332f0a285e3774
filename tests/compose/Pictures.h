// Small pictures for tests, and the bytes of their files.
#pragma once

#include "uImageFile.h"
#include "uTempFolder.h"

#include <cstdint>
#include <initializer_list>
#include <vector>

namespace murala
{

using TRows = std::vector<std::vector<TPixel>>;

// Without the pixels' unused byte.
inline TRows RowsOf(const TBitmap& bitmap)
{
    TRows rows;
    for (int y = 0; y < bitmap.Height(); ++y) {
        rows.emplace_back(bitmap.Row(y), bitmap.Row(y) + bitmap.Width());
        for (TPixel& pixel : rows.back())
            pixel &= 0xFFFFFF;
    }
    return rows;
}

inline TBitmap BitmapOf(const TRows& rows)
{
    TBitmap bitmap(static_cast<int>(rows[0].size()), static_cast<int>(rows.size()));
    for (int y = 0; y < bitmap.Height(); ++y)
        std::ranges::copy(rows[y], bitmap.Row(y));
    return bitmap;
}

// Every pixel different: its number from 1, row by row.
inline TBitmap NumberedBitmap(int width, int height)
{
    TBitmap bitmap(width, height);
    for (int i = 0; i < width * height; ++i)
        bitmap.Row(0)[i] = static_cast<TPixel>(i + 1);
    return bitmap;
}

// Little-endian fields, one after the other.
template<int Bits>
std::string Fields(std::initializer_list<std::int64_t> values)
{
    std::string content;
    for (const std::int64_t value : values)
        for (int shift = 0; shift < Bits; shift += 8)
            content += static_cast<char>(value >> shift);
    return content;
}
inline constexpr auto Bytes = Fields<8>, Words = Fields<16>, Longs = Fields<32>;

} // namespace murala
