#include "uTextDrawing.h"

#include "uTestPictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

using namespace murala;

namespace
{

constexpr TPixel Paper = 0xFFFFFF;

TBitmap NewPaper(int width, int height)
{
    return EvenBitmap(width, height, Paper);
}

TRect WholeOf(const TBitmap& bitmap)
{
    return {0, 0, bitmap.Width(), bitmap.Height()};
}

TPixel At(const TBitmap& bitmap, int x, int y)
{
    return bitmap.Row(y)[x] & 0xFFFFFFU;
}

// The smallest rectangle around everything that is not paper.
TRect Ink(const TBitmap& bitmap)
{
    TRect ink{bitmap.Width(), bitmap.Height(), 0, 0};
    for (int y = 0; y < bitmap.Height(); ++y)
        for (int x = 0; x < bitmap.Width(); ++x)
            if (At(bitmap, x, y) != Paper)
                ink = {std::min(ink.Left, x), std::min(ink.Top, y), std::max(ink.Right, x + 1),
                       std::max(ink.Bottom, y + 1)};
    return ink;
}

class TextDrawing : public testing::Test
{
protected:
    std::unique_ptr<TTextDrawing> Text = NewTextDrawing();
    TMuFont Arial{"Arial", 24};
};

} // namespace

TEST_F(TextDrawing, PointsArePixelsBy96DotsAnInch)
{
    for (const auto& [points, pixels] : {std::pair(72, 96),
                                         {24, 32},
                                         {12, 16},
                                         {10, 13},
                                         {8, 11},
                                         {1, 1},
                                         {0, 1},
                                         {-24, 32},
                                         {2147483647, 4000}})
        EXPECT_EQ(FontPixels(points), pixels) << points;
}

TEST_F(TextDrawing, TheHeightIsTheFontsAndTheWidthTheTexts)
{
    const TSize wide = Text->Measure(Arial, "Wednesday"), narrow = Text->Measure(Arial, "ii");
    EXPECT_EQ(wide.Height, narrow.Height);
    EXPECT_EQ(Text->Measure(Arial, ""), (TSize{0, wide.Height}));
    EXPECT_GE(wide.Height, 32);
    EXPECT_LE(wide.Height, 42);
    EXPECT_GT(wide.Width, 5 * narrow.Width);
    TMuFont bold = Arial, large = Arial;
    bold.Bold = true, large.Size = 48;
    EXPECT_GT(Text->Measure(bold, "Wednesday").Width, wide.Width);
    EXPECT_NEAR(Text->Measure(large, "Wednesday").Width, 2 * wide.Width, 8);
    EXPECT_EQ(Text->Measure(Arial, "Wednesday"), wide);
}

// Whether this machine has the first or the second of them.
TEST_F(TextDrawing, AMissingFontHasTheMeasuresOfItsRelative)
{
    for (const auto& [name, relative] : {std::pair("Arial", "Liberation Sans"),
                                         {"Times New Roman", "Liberation Serif"},
                                         {"Courier New", "Liberation Mono"}})
        EXPECT_EQ(Text->Measure({name, 24}, "Mittwoch 2026").Width,
                  Text->Measure({relative, 24}, "Mittwoch 2026").Width)
            << name;
    EXPECT_GT(Text->Measure({"No Such Font", 24}, "x").Width, 0);
}

TEST_F(TextDrawing, DrawsInItsBoxAndInItsColour)
{
    TBitmap bitmap = NewPaper(300, 100);
    const TSize size = Text->Measure(Arial, "IIHH");
    Text->Draw(bitmap, WholeOf(bitmap), 50, 20, Arial, 0x0000FF, "IIHH");
    const TRect ink = Ink(bitmap);
    EXPECT_GE(ink.Left, 50);
    EXPECT_LE(ink.Left, 56);
    EXPECT_GE(ink.Right, 50 + size.Width - 6);
    EXPECT_LE(ink.Right, 50 + size.Width);
    EXPECT_GE(ink.Top, 20 + 2);
    EXPECT_LE(ink.Bottom, 20 + size.Height - 4); // no letter goes below the line
    EXPECT_NEAR(ink.Height(), 23, 2);            // capitals
    std::set<TPixel> colors;
    for (int y = ink.Top; y < ink.Bottom; ++y)
        for (int x = ink.Left; x < ink.Right; ++x)
            colors.insert(At(bitmap, x, y));
    EXPECT_TRUE(colors.contains(0xFF0000)); // red is a pixel's third byte
    for (const TPixel color : colors)       // shades between red and the paper, nothing else
        EXPECT_TRUE((color & 0xFF0000U) == 0xFF0000U && (color >> 8U & 0xFFU) == (color & 0xFFU))
            << std::hex << color;
}

TEST_F(TextDrawing, IsCutAtTheBitmapAndAtTheClip)
{
    TBitmap whole = NewPaper(400, 200);
    Text->Draw(whole, WholeOf(whole), 100, 100, Arial, 0, "Cut here, please");
    TBitmap cut = NewPaper(60, 30);
    Text->Draw(cut, WholeOf(cut), -30, -8, Arial, 0, "Cut here, please");
    for (int y = 0; y < cut.Height(); ++y)
        for (int x = 0; x < cut.Width(); ++x)
            ASSERT_EQ(At(cut, x, y), At(whole, x + 130, y + 108)) << x << ' ' << y;
    TBitmap clipped = NewPaper(400, 200);
    const TRect clip{120, 110, 160, 125};
    Text->Draw(clipped, clip, 100, 100, Arial, 0, "Cut here, please");
    EXPECT_LT(Ink(clipped).Left, Ink(clipped).Right);
    for (int y = 0; y < 200; ++y)
        for (int x = 0; x < 400; ++x) {
            const bool isInside =
                x >= clip.Left && x < clip.Right && y >= clip.Top && y < clip.Bottom;
            ASSERT_EQ(At(clipped, x, y), isInside ? At(whole, x, y) : Paper) << x << ' ' << y;
        }
}

TEST_F(TextDrawing, StylesShow)
{
    const auto drawn = [&](const TMuFont& font) {
        TBitmap bitmap = NewPaper(200, 80);
        Text->Draw(bitmap, WholeOf(bitmap), 10, 10, font, 0, "n n");
        return bitmap;
    };
    const auto draw = [&](const TMuFont& font) { return Ink(drawn(font)); };
    const auto drawnPixels = [&](const TMuFont& font) {
        const TBitmap bitmap = drawn(font);
        return std::count_if(bitmap.Row(0), bitmap.Row(80),
                             [](TPixel pixel) { return (pixel & 0xFFFFFFU) != Paper; });
    };
    const TRect plain = draw(Arial);
    TMuFont underlined = Arial, struck = Arial, slanted = Arial;
    underlined.Underline = true, struck.Strikeout = true, slanted.Italic = true;
    EXPECT_GT(draw(underlined).Bottom, plain.Bottom + 1);
    EXPECT_GT(drawnPixels(struck), drawnPixels(Arial) + 15);
    EXPECT_EQ(draw(struck).Bottom, plain.Bottom);
    EXPECT_NE(draw(slanted), plain);
    EXPECT_EQ(draw(Arial), plain);
}

TEST_F(TextDrawing, OddTextsAndSizesAreDrawnSomehow)
{
    TBitmap bitmap = NewPaper(50, 50);
    for (const char* text : {"\xFF\xFE broken \xC3", "two\nlines", "\xD9\x86\xD9\x88\xD9\x81",
                             "\xE6\x9C\x88\xE6\x9B\x9C", "\xF0\x9F\x93\x85"})
        for (const int size : {0, 1, -12, 12, 2147483647, -2147483647 - 1})
            Text->Draw(bitmap, WholeOf(bitmap), 5, 5, {"Arial", size}, 0, text);
    Text->Draw(bitmap, {60, 60, 70, 70}, 5, 5, Arial, 0, "outside");
    Text->Draw(bitmap, {20, 20, 10, 10}, 5, 5, Arial, 0, "inside out");
    TBitmap empty(0, 0);
    Text->Draw(empty, {0, 0, 10, 10}, 0, 0, Arial, 0, "nothing");
}
