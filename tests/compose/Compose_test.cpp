#include "uCompose.h"

#include "Pictures.h"

using namespace murala;

namespace
{

TMuWallpaper Item(TDisplayMode mode, TColor color = 0)
{
    TMuWallpaper item;
    item.DisplayMode = mode;
    item.DesktopColor = color;
    return item;
}

// Notes the rows that are asked for.
class TWatchedReader : public TImageReader
{
public:
    TSize Size() const override { return {4, 9}; }
    void ReadRow(int y, TPixel*) override { Rows.push_back(y); }
    std::vector<int> Rows;
};

} // namespace

TEST(Compose, DrawsPixelByPixelOnTheDesktopColor)
{
    const TBitmap source = BitmapOf({{0xFF000001, 2}, {3, 4}});
    constexpr TPixel b = 0xAA0000; // red, in a pixel the third byte
    const struct {
        TDisplayMode Mode;
        TRows Rows;
    } cases[] = {
        {dmTiled, {{1, 2, 1, 2, 1}, {3, 4, 3, 4, 3}, {1, 2, 1, 2, 1}}},
        {dmCentered, {{b, b, 1, 2, b}, {b, b, 3, 4, b}, {b, b, b, b, b}}},
        {dmMirrorTiled, {{1, 2, 2, 1, 1}, {3, 4, 4, 3, 3}, {3, 4, 4, 3, 3}}},
        {dmFitHorizontally, {{1, 1, 1, 2, 2}, {1, 1, 1, 2, 2}, {3, 3, 3, 4, 4}}},
        {dmFitVertically, {{b, 1, 1, 2, b}, {b, 1, 1, 2, b}, {b, 3, 3, 4, b}}},
        {static_cast<TDisplayMode>(9), {{1, 2}, {3, 4}}},
    };
    for (const auto& [mode, rows] : cases) {
        const TBitmap bitmap = ComposeDisplayMode(*ReadBitmap(source), Item(mode, 0xAA), {5, 3});
        EXPECT_EQ(RowsOf(bitmap), rows) << int{mode};
        EXPECT_LE(*std::max_element(bitmap.Row(0), bitmap.Row(1)), b); // no unused byte
    }
    EXPECT_THROW(ComposeDisplayMode(*ReadBitmap(TBitmap(0, 5)), Item(dmTiled), {3, 3}),
                 EInvalidImage);
}

TEST(Compose, ReadsEveryNeededRowOnceFromTheTop)
{
    const struct {
        TDisplayMode Mode;
        int ScreenHeight;
        std::vector<int> Rows;
    } cases[] = {
        {dmMirrorTiled, 40, {0, 1, 2, 3, 4, 5, 6, 7, 8}},
        {dmCentered, 4, {2, 3, 4, 5}},
        {dmStretched, 4, {0, 2, 4, 6}},
        {dmFitHorizontally, 4, {3, 4, 5}}, // 13 or 14 rows a screen of which shows four
    };
    for (const auto& [mode, height, rows] : cases) {
        TWatchedReader reader;
        ComposeDisplayMode(reader, Item(mode), {6, height});
        EXPECT_EQ(reader.Rows, rows) << int{mode};
    }
}

TEST(Compose, TintComesBeforeTheAddOns)
{
    TMuWallpaper item = Item(dmCentered, 0xFFFFFF);
    item.GammaStyle = gsSolid;
    item.SetStartTint({-128, -128, -128});
    const TBitmap source = BitmapOf({{0x804020}});
    const TBitmap bitmap = ComposePicture(*ReadBitmap(source), item, {3, 1}, [](TBitmap& picture) {
        EXPECT_EQ(RowsOf(picture), (TRows{{0x7F7F7F, 0x402010, 0x7F7F7F}}));
        picture.Row(0)[0] = 1;
    });
    EXPECT_EQ(bitmap.Row(0)[0], 1U);
}

TEST(Compose, ResizesToTheNearestPixelAndFillsTheScreen)
{
    TBitmap bitmap = NumberedBitmap(3, 2);
    ResizeBitmap(bitmap, 5, 1);
    EXPECT_EQ(RowsOf(bitmap), (TRows{{1, 1, 2, 2, 3}}));
    FillBackground(bitmap, {2, 1}, 0x112233);
    EXPECT_EQ(RowsOf(bitmap), (TRows{{0x332211, 0x332211}}));
}

TEST(Compose, AnUnusableTargetFallsBackToTheTemporaryFolder)
{
    const TTempFolder folder;
    EXPECT_EQ(WallpaperBitmapName(1), "MuralaWallpaper.bmp");
    EXPECT_EQ(WallpaperBitmapName(2), "MuralaWallpaper2.bmp");
    const TBitmap bitmap = NumberedBitmap(2, 2);
    for (const std::string& bad : {std::string(), folder.File("none/a.bmp"), folder.File(".")}) {
        const std::string written = SaveWallpaper(bitmap, bad);
        EXPECT_EQ(FileNamePart(written), "temp.bmp");
        EXPECT_EQ(RowsOf(LoadImageFile(written)), RowsOf(bitmap));
        DeleteFileIfPresent(written);
    }
}

TEST(Compose, AScreenOf256ColoursGetsAPictureOfTheNearestOfThem)
{
    const TTempFolder folder;
    const TRows rows = {{0x000000, 0xFFFFFF, 0xFF0000}, {0x00FF00, 0x0000FF, 0x346B99}};
    const std::string name = folder.File("a.bmp");
    EXPECT_EQ(SaveWallpaper(BitmapOf(rows), name, 8), name);
    EXPECT_EQ(ReadWholeFile(name).size(), 54U + 252 * 4 + 2 * 4);
    EXPECT_EQ(RowsOf(LoadImageFile(name)), (TRows{rows[0], {0x00FF00, 0x0000FF, 0x338099}}));
}
