#include "uDisplayMode.h"

#include <gtest/gtest.h>

using namespace murala;

namespace
{

// The positions' digits; "-" for the background.
std::string Digits(const std::vector<int>& positions)
{
    std::string digits;
    for (const int position : positions)
        digits += position == Background ? '-' : static_cast<char>('0' + position);
    return digits;
}

} // namespace

TEST(DisplayMode, ShowsTheSourcePixels)
{
    const struct {
        TDisplayMode Mode;
        TSize Source, Screen;
        const char *Columns, *Rows;
    } cases[] = {
        {dmTiled, {3, 2}, {8, 5}, "01201201", "01010"},
        {dmTiled, {9, 9}, {3, 2}, "012", "01"},
        // (7 - 4) / 2 = 1.5 and (8 - 3) / 2 = 2.5 both become 2.
        {dmCentered, {4, 3}, {7, 8}, "--0123-", "--012---"},
        // (3 - 8) / 2 = -2.5 becomes -2; (3 - 6) / 2 = -1.5 becomes -2.
        {dmCentered, {8, 6}, {3, 3}, "234", "234"},
        {dmStretched, {3, 5}, {7, 3}, "0001122", "013"},
        {dmMirrorTiled, {3, 2}, {8, 5}, "01221001", "01100"},
        // 2 * (6 / 4) = 3 rows, from row round(1 / 2) = 0 on; 1 * (5 / 2) = 2.5 becomes 2 rows.
        {dmFitHorizontally, {4, 2}, {6, 4}, "001223", "001-"},
        {dmFitHorizontally, {2, 1}, {5, 4}, "00011", "-00-"},
        {dmFitHorizontally, {2, 8}, {2, 3}, "01", "234"},
        {dmFitHorizontally, {9, 1}, {3, 2}, "036", "--"},
        {dmFitVertically, {2, 4}, {6, 6}, "--001-", "001223"},
        {static_cast<TDisplayMode>(6), {2, 3}, {9, 9}, "01", "012"},
    };
    for (const auto& c : cases) {
        const TDrawMap map = DisplayModeMap(c.Mode, c.Source, c.Screen);
        EXPECT_EQ(Digits(map.Columns), c.Columns) << int{c.Mode};
        EXPECT_EQ(Digits(map.Rows), c.Rows) << int{c.Mode};
    }
    // 65500 * 65500 rows; the middle one is the first half of the source's.
    EXPECT_EQ(DisplayModeMap(dmFitHorizontally, {1, 65500}, {65500, 3}).Rows,
              (std::vector<int>{32749, 32749, 32750}));
}

TEST(DisplayMode, TwoRoundingsStayDistinct)
{
    EXPECT_EQ(RoundHalfAway(2.5F), 3);
    EXPECT_EQ(RoundHalfAway(-2.5F), -3);
    EXPECT_EQ(RoundHalfEven(-0.5L), 0);
    EXPECT_EQ(RoundHalfEven(9007199254740993.5L), 9007199254740994); // wider than a double
}

TEST(DisplayMode, LimitsMoveTheModeOn)
{
    constexpr TSize screen = {1600, 1200}, wide = {1920, 1080};
    constexpr auto unknown = static_cast<TDisplayMode>(200);
    constexpr auto mirror = TooLargeForMirror, tall = TooTallForFit, wideFit = TooWideForFit;
    const struct {
        TDisplayMode Mode;
        TSize Image, Screen;
        TDisplayMode Checked, Next;
        std::vector<std::string_view> Messages = {};
    } cases[] = {
        {dmCentered, {5000, 5000}, screen, dmCentered, dmStretched},
        // Only Mirror Tiled is passed over for its width, as the next mode of Stretched.
        {dmStretched, {800, 600}, screen, dmStretched, dmMirrorTiled},
        {dmStretched, {801, 600}, screen, dmStretched, dmFitHorizontally},
        {dmMirrorTiled, {800, 9000}, screen, dmMirrorTiled, dmFitHorizontally},
        {dmMirrorTiled, {801, 600}, screen, dmFitHorizontally, dmFitHorizontally, {mirror}},
        // 1600 x 1200 = 1,920,000 is just allowed; a row more is not, nor half a row (rounded up).
        {dmFitHorizontally, {1600, 1200}, screen, dmFitHorizontally, dmFitVertically},
        {dmFitHorizontally, {1600, 1201}, screen, dmFitVertically, dmTiled, {tall}},
        {dmFitHorizontally, {3200, 2401}, screen, dmFitVertically, dmTiled, {tall}},
        {dmFitVertically, {1600, 1200}, screen, dmFitVertically, dmTiled},
        {dmFitVertically, {1601, 1200}, screen, dmStretched, dmMirrorTiled, {wideFit}},
        // On a large screen no fit is allowed.
        {dmMirrorTiled, wide, wide, dmStretched, dmFitHorizontally, {mirror, tall, wideFit}},
        {dmFitHorizontally, wide, wide, dmStretched, dmMirrorTiled, {tall, wideFit}},
        {dmFitVertically, {0, 0}, screen, dmFitVertically, dmTiled},
        {unknown, {10, 10}, screen, unknown, dmTiled},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << int{c.Mode} << " of " << c.Image.Width);
        TDisplayMode mode = c.Mode;
        EXPECT_EQ(CheckDisplayMode(mode, c.Image, c.Screen), c.Messages);
        EXPECT_EQ(mode, c.Checked);
        EXPECT_EQ(NextDisplayMode(c.Mode, c.Image, c.Screen), c.Next);
    }
}
