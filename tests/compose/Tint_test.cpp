#include "uTint.h"

#include "Pictures.h"

using namespace murala;

TEST(Tint, ChannelFollowsTheFormulaForEveryValue)
{
    for (int value = -256; value <= 255; ++value)
        for (int c = 0; c < 256; ++c) {
            const int expected =
                value < 0 ? c * (value + 256) / 256 : c * (255 - value) / 255 + value;
            ASSERT_EQ(TintChannel(static_cast<std::uint8_t>(c), value), expected)
                << c << ' ' << value;
        }
}

TEST(Tint, SolidTintsEveryChannelByItsOwnValue)
{
    // Wider than one block of the inner loop, and not a multiple of it.
    TBitmap bitmap = BitmapOf({std::vector<TPixel>(75, 0xABC8C8C8), std::vector<TPixel>(75, 0xFF)});
    TMuWallpaper item;
    item.SetStartTint({-128, 100, 0});
    for (const int style : {0, 4, 1}) { // only the last one is a solid tint
        EXPECT_EQ(bitmap.Row(0)[0], 0xABC8C8C8);
        item.GammaStyle = static_cast<TGammaStyle>(style);
        ApplyTint(bitmap, item);
    }
    for (int x = 0; x < 75; ++x) {
        ASSERT_EQ(bitmap.Row(0)[x], 0xAB64DDC8U) << x;
        ASSERT_EQ(bitmap.Row(1)[x], 0x0064FFU) << x;
    }
}

TEST(Tint, StylesSpreadTheItemsOwnValuesTheirOwnWay)
{
    TMuWallpaper item;
    item.SetStartTint({-64, -128, 0});
    item.SetEndTint({-256, 0, -128});
    // Half way: -160, -64, -64.
    constexpr TPixel start = 0xBF7FFF, middle = 0x5FBFBF, same = 0xFFFFFF;
    const struct {
        TGammaStyle Style;
        TRows Rows;
    } cases[] = {
        {gsNone, {{same, same}, {same, same}}},
        {gsSolid, {{start, start}, {start, start}}},
        {gsHorizontal, {{start, middle}, {start, middle}}},
        {gsVertical, {{start, start}, {middle, middle}}},
    };
    for (const auto& [style, rows] : cases) {
        TBitmap bitmap = BitmapOf({{same, same}, {same, same}});
        item.GammaStyle = style;
        ApplyTint(bitmap, item);
        EXPECT_EQ(RowsOf(bitmap), rows) << int{style};
    }
}

TEST(Tint, ARampIsCalculatedMoreExactlyThanInSinglePrecision)
{
    // Black becomes the value itself. With this width none is half way between two whole ones, but
    // some are so near that single precision is on the wrong side.
    constexpr int width = 99991;
    TBitmap bitmap(width, 1);
    std::fill_n(bitmap.Row(0), width, TPixel{0});
    TintHorizontal(bitmap, {-256, -256, -256}, {255, 255, 255});
    for (int x = 0; x < width; ++x) {
        const int doubled = 2 * (511 * x - 256 * width) + width;
        ASSERT_EQ(bitmap.Row(0)[x] & 255U, static_cast<TPixel>(std::max(doubled, 0) / (2 * width)))
            << x;
    }
}

TEST(Tint, RampsStartExactlyAndRoundHalfToEven)
{
    TBitmap wide = BitmapOf({{0x102030, 0x102030}});
    TintHorizontal(wide, {-256, -256, -256}, {255, 255, 255});
    EXPECT_EQ(RowsOf(wide), (TRows{{0, 0x102030}})); // column 1: -0.5, which is 0
    TBitmap tall = BitmapOf({{0xFF00FF}, {0xFF00FF}});
    TintVertical(tall, {0, 0, 0}, {-3, 5, -5});
    // row 1: -1.5 is -2, 2.5 is 2, -2.5 is -2
    EXPECT_EQ(RowsOf(tall), (TRows{{0xFF00FF}, {0xFD02FD}}));
}

TEST(Tint, RectangleIsCutAtTheBitmap)
{
    TBitmap bitmap = BitmapOf({{1, 1, 1}, {1, 1, 1}, {1, 1, 1}});
    TintRectangle(bitmap, {1, -5, 99, 2}, {-256, -256, -256});
    TintRectangle(bitmap, {5, 0, 9, 9}, {255, 255, 255});
    TintRectangle(bitmap, {-9, 0, -5, 9}, {255, 255, 255});
    EXPECT_EQ(RowsOf(bitmap), (TRows{{1, 0, 0}, {1, 0, 0}, {1, 1, 1}}));
}
