// Small pictures for tests, and the files that they are written to.
#pragma once

#include "uImageFile.h"
#include "uSafeFile.h"
#include "uTempFolder.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace murala
{

class TTestFolder : public TTempFolder
{
public:
    std::string Write(std::string_view name, std::string_view content) const
    {
        ReplaceWholeFile(File(name), content, TFlush::ToSystemCache);
        return File(name);
    }
};

inline constexpr TPixel ColorBits = 0xFFFFFF;

using TRows = std::vector<std::vector<TPixel>>;

inline TRows RowsOf(const TBitmap& bitmap)
{
    TRows rows;
    for (int y = 0; y < bitmap.Height(); ++y) {
        rows.emplace_back(bitmap.Row(y), bitmap.Row(y) + bitmap.Width());
        for (TPixel& pixel : rows.back())
            pixel &= ColorBits;
    }
    return rows;
}

inline TBitmap BitmapOf(const TRows& rows)
{
    TBitmap bitmap(rows.empty() ? 0 : static_cast<int>(rows[0].size()),
                   static_cast<int>(rows.size()));
    for (int y = 0; y < bitmap.Height(); ++y)
        std::copy(rows[y].begin(), rows[y].end(), bitmap.Row(y));
    return bitmap;
}

// Every pixel different: its number from 1, row by row.
inline TBitmap NumberedBitmap(int width, int height)
{
    TBitmap bitmap(width, height);
    TPixel number = 1;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            bitmap.Row(y)[x] = number++;
    return bitmap;
}

// Smooth colours with some texture, as photographs have them.
inline TBitmap PhotoBitmap(int width, int height)
{
    TBitmap bitmap(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            bitmap.Row(y)[x] = static_cast<TPixel>(
                (x * 255 / width) << 16 | (y * 255 / height) << 8 | ((x * 7 + y * 13) % 64 + 96));
    return bitmap;
}

// Little-endian fields, one after the other.
class TBytes
{
public:
    TBytes& Byte(std::initializer_list<int> values)
    {
        for (const int value : values)
            m_content.push_back(static_cast<char>(value));
        return *this;
    }
    TBytes& Word(std::uint32_t value)
    {
        return Byte({static_cast<int>(value & 255U), static_cast<int>(value >> 8U & 255U)});
    }
    TBytes& Long(std::uint32_t value) { return Word(value).Word(value >> 16U); }
    TBytes& Append(const TBytes& other)
    {
        m_content += other.m_content;
        return *this;
    }
    std::uint32_t Size() const { return static_cast<std::uint32_t>(m_content.size()); }
    const std::string& Content() const { return m_content; }

private:
    std::string m_content;
};

} // namespace murala
