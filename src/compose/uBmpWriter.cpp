// Writing BMP files.

#include "uImageFile.h"
#include "uSafeFile.h"

#include <algorithm>
#include <array>
#include <vector>

namespace murala
{

namespace
{

// An even palette: this many levels of red, green and blue.
constexpr int RedLevels = 6, GreenLevels = 7, BlueLevels = 6;
constexpr std::size_t PaletteColors = std::size_t{RedLevels} * GreenLevels * BlueLevels;

constexpr std::size_t HeaderSize = 54;

std::vector<std::uint8_t> Header(TSize size, int bitsPerPixel, std::size_t colors,
                                 std::size_t rowBytes)
{
    std::vector<std::uint8_t> header(HeaderSize);
    header[0] = 'B';
    header[1] = 'M';
    const auto put = [&](std::size_t offset, std::size_t value) {
        for (int i = 0; i < 4; ++i, value >>= 8U)
            header[offset++] = static_cast<std::uint8_t>(value);
    };
    const std::size_t start = HeaderSize + 4 * colors;
    const std::size_t pixelBytes = rowBytes * static_cast<std::size_t>(size.Height);
    put(2, start + pixelBytes);
    put(10, start);
    put(14, HeaderSize - 14);
    put(18, static_cast<std::size_t>(size.Width));
    put(22, static_cast<std::size_t>(size.Height));
    put(26, 1U | static_cast<std::size_t>(bitsPerPixel) << 16U); // planes, bits
    put(34, pixelBytes);
    put(46, colors);
    return header;
}

std::array<TPixel, PaletteColors> EvenPalette()
{
    const auto level = [](int index, int levels) {
        return static_cast<TPixel>((index * 255 + (levels - 1) / 2) / (levels - 1));
    };
    std::array<TPixel, PaletteColors> palette{};
    auto color = palette.begin();
    for (int red = 0; red < RedLevels; ++red)
        for (int green = 0; green < GreenLevels; ++green)
            for (int blue = 0; blue < BlueLevels; ++blue)
                *color++ = level(red, RedLevels) << 16U | level(green, GreenLevels) << 8U |
                           level(blue, BlueLevels);
    return palette;
}

// The nearest colour of the even palette.
std::uint8_t PaletteIndex(TPixel pixel)
{
    const auto level = [](TPixel channel, int levels) {
        return (static_cast<int>(channel & 0xFFU) * (levels - 1) + 127) / 255;
    };
    return static_cast<std::uint8_t>(
        (level(pixel >> 16U, RedLevels) * GreenLevels + level(pixel >> 8U, GreenLevels)) *
            BlueLevels +
        level(pixel, BlueLevels));
}

// What draws on bitmaps leaves anything in the byte that a pixel does not use, and some programs
// read it as opacity.
TPixel WithoutFourthByte(TPixel pixel)
{
    return pixel & 0xFFFFFFU;
}

// Writes the rows from the bottom up, in few large pieces from a buffer that stays in the
// processor's cache. `convert` fills one row of the file from one of the bitmap.
template<typename TUnit, typename TConvert>
void WriteRows(TFileReplacement& file, const TBitmap& bitmap, std::size_t rowUnits,
               TConvert convert)
{
    constexpr std::size_t blockBytes = 1U << 18U;
    const std::size_t rowBytes = std::max<std::size_t>(1, rowUnits * sizeof(TUnit));
    const auto blockRows = static_cast<int>(std::max<std::size_t>(1, blockBytes / rowBytes));
    std::vector<TUnit> block(static_cast<std::size_t>(blockRows) * rowUnits);
    for (int y = bitmap.Height(); y > 0;) {
        TUnit* end = block.data();
        for (const int top = std::max(0, y - blockRows); y > top; end += rowUnits)
            convert(bitmap.Row(--y), end);
        file.Write(block.data(), static_cast<std::size_t>(end - block.data()) * sizeof(TUnit));
    }
}

} // namespace

void SaveBitmapFile(const TBitmap& bitmap, const std::string& fileName, int screenBitsPerPixel)
{
    TFileReplacement file(fileName, TFlush::ToSystemCache);
    const auto width = static_cast<std::size_t>(bitmap.Width());
    if (screenBitsPerPixel == 8) {
        const std::size_t rowBytes = (width + 3) / 4 * 4;
        const auto header = Header(bitmap.Size(), 8, PaletteColors, rowBytes);
        const auto palette = EvenPalette();
        file.Write(header.data(), header.size());
        file.Write(palette.data(), palette.size() * sizeof(TPixel));
        WriteRows<std::uint8_t>(file, bitmap, rowBytes, [=](const TPixel* from, std::uint8_t* to) {
            std::transform(from, from + width, to, PaletteIndex);
        });
    } else {
        const auto header = Header(bitmap.Size(), 32, 0, width * sizeof(TPixel));
        file.Write(header.data(), header.size());
        WriteRows<TPixel>(file, bitmap, width, [=](const TPixel* from, TPixel* to) {
            std::transform(from, from + width, to, WithoutFourthByte);
        });
    }
    file.Commit();
}

} // namespace murala
