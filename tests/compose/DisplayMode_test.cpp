#include "uDisplayMode.h"

#include <gtest/gtest.h>

namespace murala
{

namespace
{

constexpr int B = Background;
using TPositions = std::vector<int>;

struct TModeCase {
    const char* Name;
    std::uint8_t Mode;
    TSize Source, Screen;
    TPositions Columns, Rows;
};

void PrintTo(const TModeCase& test, std::ostream* out)
{
    *out << test.Name;
}

class DisplayModeMapTest : public testing::TestWithParam<TModeCase>
{
};

TEST_P(DisplayModeMapTest, ShowsTheSourcePixels)
{
    const TModeCase& test = GetParam();
    const TDrawMap map = DisplayModeMap(test.Mode, test.Source, test.Screen);
    EXPECT_EQ(map.Columns, test.Columns);
    EXPECT_EQ(map.Rows, test.Rows);
}

const TModeCase ModeCases[] = {
    {"TilesFromTheTopLeftCorner",
     dmTiled,
     {3, 2},
     {8, 5},
     {0, 1, 2, 0, 1, 2, 0, 1},
     {0, 1, 0, 1, 0}},
    {"TileLargerThanScreenIsCut", dmTiled, {9, 9}, {3, 2}, {0, 1, 2}, {0, 1}},
    // (7 - 4) / 2 = 1.5 and (8 - 3) / 2 = 2.5 both become 2.
    {"CentredHalfGoesToEven",
     dmCentered,
     {4, 3},
     {7, 8},
     {B, B, 0, 1, 2, 3, B},
     {B, B, 0, 1, 2, B, B, B}},
    // (3 - 8) / 2 = -2.5 becomes -2; (3 - 6) / 2 = -1.5 becomes -2.
    {"CentredLargerIsCutOnBothSides", dmCentered, {8, 6}, {3, 3}, {2, 3, 4}, {2, 3, 4}},
    {"StretchedIsNearestNeighbour", dmStretched, {3, 5}, {7, 3}, {0, 0, 0, 1, 1, 2, 2}, {0, 1, 3}},
    {"MirrorRepeatsItsBlock",
     dmMirrorTiled,
     {3, 2},
     {8, 5},
     {0, 1, 2, 2, 1, 0, 0, 1},
     {0, 1, 1, 0, 0}},
    // 2 * (6 / 4) = 3 rows, from row round(1 / 2) = 0 on.
    {"FitHorizontallyKeepsTheShape",
     dmFitHorizontally,
     {4, 2},
     {6, 4},
     {0, 0, 1, 2, 2, 3},
     {0, 0, 1, B}},
    // 1 * (5 / 2) = 2.5 becomes 2 rows.
    {"FitHorizontallyHalfGoesToEven",
     dmFitHorizontally,
     {2, 1},
     {5, 4},
     {0, 0, 0, 1, 1},
     {B, 0, 0, B}},
    {"FitHorizontallyTallIsCut", dmFitHorizontally, {2, 8}, {2, 3}, {0, 1}, {2, 3, 4}},
    {"FitHorizontallyToNothing", dmFitHorizontally, {9, 1}, {3, 2}, {0, 3, 6}, {B, B}},
    {"FitVerticallyKeepsTheShape",
     dmFitVertically,
     {2, 4},
     {6, 6},
     {B, B, 0, 0, 1, B},
     {0, 0, 1, 2, 2, 3}},
    {"UnknownModeKeepsTheSize", 6, {2, 3}, {9, 9}, {0, 1}, {0, 1, 2}},
};
INSTANTIATE_TEST_SUITE_P(Modes, DisplayModeMapTest, testing::ValuesIn(ModeCases),
                         [](const auto& test) { return test.param.Name; });

TEST(DisplayModeTest, ScalesALineToMillionsOfRowsWithoutMakingThem)
{
    const TDrawMap map = DisplayModeMap(dmFitHorizontally, {1, 65500}, {65500, 3});
    // 65500 * 65500 rows; the middle one is the first half of the source's.
    EXPECT_EQ(map.Rows, (TPositions{32749, 32749, 32750}));
}

TEST(DisplayModeTest, TwoRoundingsStayDistinct)
{
    EXPECT_EQ(RoundHalfAway(2.5F), 3);
    EXPECT_EQ(RoundHalfAway(-2.5F), -3);
    EXPECT_EQ(RoundHalfEven(2.5L), 2);
    EXPECT_EQ(RoundHalfEven(-0.5L), 0);
    EXPECT_EQ(RoundHalfEven(3.5L), 4);
    // Wider than a double: 2^53 + 1.5.
    EXPECT_EQ(RoundHalfEven(9007199254740993.5L), 9007199254740994);
}

struct TLimitCase {
    std::uint8_t Mode;
    TSize Image, Screen;
    std::uint8_t Checked, Next;
    std::vector<std::string_view> Messages;
};

TEST(DisplayModeTest, LimitsMoveTheModeOn)
{
    constexpr TSize screen = {1600, 1200};
    const TLimitCase cases[] = {
        {dmTiled, {5000, 5000}, screen, dmTiled, dmCentered, {}},
        {dmCentered, {5000, 5000}, screen, dmCentered, dmStretched, {}},
        // Only Mirror Tiled is passed over for its width, as the next mode of Stretched.
        {dmStretched, {800, 600}, screen, dmStretched, dmMirrorTiled, {}},
        {dmStretched, {801, 600}, screen, dmStretched, dmFitHorizontally, {}},
        {dmMirrorTiled, {800, 9000}, screen, dmMirrorTiled, dmFitHorizontally, {}},
        {dmMirrorTiled,
         {801, 600},
         screen,
         dmFitHorizontally,
         dmFitHorizontally,
         {TooLargeForMirror}},
        // 1600 x 1200 = 1,920,000 is just allowed; a row more is not.
        {dmFitHorizontally, {1600, 1200}, screen, dmFitHorizontally, dmFitVertically, {}},
        {dmFitHorizontally, {1600, 1201}, screen, dmFitVertically, dmTiled, {TooTallForFit}},
        {dmFitHorizontally, {1000, 800}, screen, dmFitVertically, dmTiled, {TooTallForFit}},
        // 1200.5 rows are rounded up, over the limit.
        {dmFitHorizontally, {3200, 2401}, screen, dmFitVertically, dmTiled, {TooTallForFit}},
        {dmFitVertically, {1600, 1200}, screen, dmFitVertically, dmTiled, {}},
        {dmFitVertically, {1601, 1200}, screen, dmStretched, dmMirrorTiled, {TooWideForFit}},
        // On a large screen no fit is allowed; the steps follow each other.
        {dmMirrorTiled,
         {1920, 1080},
         {1920, 1080},
         dmStretched,
         dmFitHorizontally,
         {TooLargeForMirror, TooTallForFit, TooWideForFit}},
        {dmFitHorizontally,
         {1920, 1080},
         {1920, 1080},
         dmStretched,
         dmMirrorTiled,
         {TooTallForFit, TooWideForFit}},
        {dmFitVertically, {0, 0}, screen, dmFitVertically, dmTiled, {}},
        {200, {10, 10}, screen, 200, dmTiled, {}},
    };
    for (const TLimitCase& test : cases) {
        SCOPED_TRACE(testing::Message() << "mode " << int{test.Mode} << ", " << test.Image.Width
                                        << " x " << test.Image.Height);
        std::uint8_t mode = test.Mode;
        EXPECT_EQ(CheckDisplayMode(mode, test.Image, test.Screen), test.Messages);
        EXPECT_EQ(mode, test.Checked);
        EXPECT_EQ(NextDisplayMode(test.Mode, test.Image, test.Screen), test.Next);
    }
}

} // namespace

} // namespace murala
