#include "uGradientShade.h"

#include "Pictures.h"

using namespace murala;

namespace
{

constexpr TColor Black = 0, White = 0xFFFFFF;

std::string BandText(const TGradientBand& band)
{
    return std::to_string(band.Start) + ".." + std::to_string(band.End) + " " +
           std::to_string(band.Color & 0xFFU);
}

} // namespace

TEST(GradientShade, ColoursAreRoundedHalfToEven)
{
    // Red, green and blue each from its own start to its own end.
    const TGradientShade shade(0x0100FF, 0x0403FC);
    EXPECT_EQ(shade.ColorAt(0), 0x0100FFU);
    EXPECT_EQ(shade.ColorAt(1), 0x0403FCU);
    EXPECT_EQ(shade.ColorAt(0.5L), 0x0202FEU); // 2.5, 1.5 and 253.5
    EXPECT_EQ(TGradientShade(White, Black).ColorAt(0.25L), 0xBFBFBFU);
}

TEST(GradientShade, BandsHaveTheColourOfTheirRightEdge)
{
    struct {
        int Extent, Count;
        const char *First, *Second, *Last;
    } const cases[] = {
        {1024, 256, "0..4 1", "4..8 2", "1020..1024 255"},
        {1000, 256, "0..4 1", "4..8 2", "997..1000 255"},
        {256, 256, "0..1 1", "1..2 2", "255..256 255"},
        {3, 3, "0..1 85", "1..2 170", "2..3 255"},
        {1, 1, "0..1 255", "0..1 255", "0..1 255"},
    };
    for (const auto& each : cases) {
        const auto bands = TGradientShade(Black, White).Bands(each.Extent);
        ASSERT_EQ(bands.size(), static_cast<std::size_t>(each.Count)) << each.Extent;
        EXPECT_EQ(BandText(bands.front()), each.First);
        EXPECT_EQ(BandText(bands[bands.size() > 1 ? 1 : 0]), each.Second);
        EXPECT_EQ(BandText(bands.back()), each.Last);
        for (std::size_t i = 1; i < bands.size(); ++i)
            EXPECT_EQ(bands[i].Start, bands[i - 1].End);
    }
    EXPECT_TRUE(TGradientShade(Black, White).Bands(-7).empty());
    EXPECT_TRUE(TGradientShade(Black, White).Bands(0).empty());
}

TEST(GradientShade, StripsRunAlongTheScreen)
{
    const TGradientShade redToBlue(0x0000FF, 0xFF0000);
    const TBitmap wide = GradientStrip(redToBlue, TGradientDirection::Horizontal, {512, 300});
    EXPECT_EQ(wide.Size(), (TSize{512, 1}));
    EXPECT_EQ(wide.Row(0)[0], 0xFE0001U); // a pixel has red in its third byte
    EXPECT_EQ(wide.Row(0)[511], 0x0000FFU);
    const TBitmap tall = GradientStrip(redToBlue, TGradientDirection::Vertical, {512, 300});
    EXPECT_EQ(tall.Size(), (TSize{1, 300}));
    EXPECT_EQ(tall.Row(0)[0], 0xFD0002U); // the first band ends at 2 of 300
    EXPECT_EQ(tall.Row(299)[0], 0x0000FFU);
    TBitmap area(2, 2);
    TGradientShade(Black, White).Paint(area, TGradientDirection::Vertical);
    EXPECT_EQ(RowsOf(area), (TRows{{0x808080, 0x808080}, {White, White}}));
}

TEST(GradientShade, TheFileGetsTheSmallestFreeNumber)
{
    const TTempFolder folder;
    folder.Write("GradientBitmap0.bmp", "taken");
    folder.Write("GradientBitmap2.bmp", "taken");
    const TBitmap strip = NumberedBitmap(5, 1);
    EXPECT_EQ(SaveGradient(strip, folder.Path()), folder.File("GradientBitmap1.bmp"));
    EXPECT_EQ(RowsOf(LoadImageFile(folder.File("GradientBitmap1.bmp"))), RowsOf(strip));
    std::filesystem::create_directory(NativePath(folder.File("GradientBitmap3.bmp")));
    EXPECT_EQ(SaveGradient(strip, folder.Path()), folder.File("GradientBitmap4.bmp"));
    EXPECT_EQ(ReadWholeFile(folder.File("GradientBitmap0.bmp")), "taken");
}
