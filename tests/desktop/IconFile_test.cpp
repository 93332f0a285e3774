#include "uIconFile.h"

#include "uImageFile.h"
#include "uTempFolder.h"

#include <gtest/gtest.h>

using namespace murala;

namespace
{

constexpr TPixel Red = 0xFF0000, Blue = 0x0000FF, White = 0xFFFFFF;

std::string Number(std::uint32_t value, std::size_t bytes)
{
    std::string text;
    for (std::size_t i = 0; i < bytes; i++)
        text += static_cast<char>(value >> 8 * i & 0xFFU);
    return text;
}

struct TTestIcon {
    int Side;
    int BitCount;
    std::string Content;
};

// The upper half in the colour, the lower half transparent.
TTestIcon HalfIcon(int side, int bitCount, TPixel color)
{
    std::string bitmap = Number(40, 4) + Number(side, 4) + Number(2 * side, 4) + Number(1, 2) +
                         Number(bitCount, 2) + std::string(24, '\0');
    if (bitCount == 8)
        bitmap += Number(0, 4) + Number(color, 4) + std::string(4 * 254, '\0');
    std::string mask;
    for (int y = side - 1; y >= 0; y--) { // from the bottom up
        const bool isColored = y < side / 2;
        for (int x = 0; x < side; x++)
            bitmap += bitCount == 8 ? Number(isColored ? 1 : 0, 1)
                                    : Number(isColored ? color | 0xFF000000 : 0, 4);
        mask += std::string((side + 31) / 32 * 4, isColored ? '\0' : '\xFF');
    }
    return {side, bitCount, bitmap + mask};
}

TTestIcon PngIcon()
{
    constexpr unsigned char Png[] = {
        0x89, 0x50, 0x4e, 0x47, 0x0d, 0x0a, 0x1a, 0x0a, 0x00, 0x00, 0x00, 0x0d, 0x49, 0x48,
        0x44, 0x52, 0x00, 0x00, 0x00, 0x08, 0x00, 0x00, 0x00, 0x08, 0x08, 0x06, 0x00, 0x00,
        0x00, 0xc4, 0x0f, 0xbe, 0x8b, 0x00, 0x00, 0x00, 0x18, 0x49, 0x44, 0x41, 0x54, 0x18,
        0xd3, 0x63, 0xfc, 0xcf, 0xc0, 0xf0, 0x9f, 0x01, 0x0f, 0x60, 0x62, 0x20, 0x00, 0x28,
        0x57, 0x30, 0x18, 0x00, 0x00, 0x0f, 0xc7, 0x02, 0x06, 0xee, 0x27, 0x94, 0xd0, 0x00,
        0x00, 0x00, 0x00, 0x49, 0x45, 0x4e, 0x44, 0xae, 0x42, 0x60, 0x82};
    return {8, 32, {reinterpret_cast<const char*>(Png), sizeof Png}};
}

std::string IconFile(const std::vector<TTestIcon>& icons)
{
    std::string entries, contents;
    for (const TTestIcon& icon : icons) {
        const std::size_t offset = 6 + 16 * icons.size() + contents.size();
        entries += Number(icon.Side, 1) + Number(icon.Side, 1) + Number(0, 2) + Number(1, 2) +
                   Number(icon.BitCount, 2) + Number(icon.Content.size(), 4) + Number(offset, 4);
        contents += icon.Content;
    }
    return Number(0, 2) + Number(1, 2) + Number(icons.size(), 2) + entries + contents;
}

} // namespace

TEST(IconFile, TheLargestPictureOfEveryFormIsReadOnWhite)
{
    const std::pair<int, std::vector<TTestIcon>> cases[] = {
        {8, {PngIcon()}},
        {48, {HalfIcon(16, 32, Blue), HalfIcon(48, 8, Red), PngIcon()}},
        {256, {HalfIcon(32, 32, Blue), HalfIcon(256, 32, Red)}},
    };
    const TTempFolder folder;
    for (const auto& [side, icons] : cases) {
        const TBitmap picture = LoadIconFile(folder.Write("Öl.ico", IconFile(icons)));
        ASSERT_EQ(picture.Size(), (TSize{side, side}));
        EXPECT_EQ(picture.Row(0)[0] & White, Red) << side;
        EXPECT_EQ(picture.Row(side / 2 - 1)[side - 1] & White, Red) << side;
        EXPECT_EQ(picture.Row(side / 2)[0] & White, White) << side;
        EXPECT_EQ(picture.Row(side - 1)[side / 2] & White, White) << side;
    }
}

TEST(IconFile, WhatIsNoIconIsRefused)
{
    const TTempFolder folder;
    const std::string whole = IconFile({HalfIcon(16, 32, Red)});
    const std::string contents[] = {"", "no icon", whole.substr(0, 21), whole.substr(0, 5),
                                    IconFile({})};
    for (const std::string& content : contents)
        EXPECT_THROW(LoadIconFile(folder.Write("a.ico", content)), EInvalidImage) << content.size();
    EXPECT_THROW(LoadIconFile(folder.File("missing.ico")), EInvalidImage);
    EXPECT_THROW(LoadIconFile(folder.Path()), EInvalidImage);
}
