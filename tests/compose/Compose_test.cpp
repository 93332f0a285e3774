#include "uCompose.h"

#include "Pictures.h"

namespace murala
{

namespace
{

TMuWallpaper Item(std::uint8_t mode, TColor color = 0)
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
    explicit TWatchedReader(const TBitmap& bitmap) : m_reader(ReadBitmap(bitmap)) {}
    TSize Size() const override { return m_reader->Size(); }
    void ReadRow(int y, TPixel* row) override
    {
        Rows.push_back(y);
        m_reader->ReadRow(y, row);
    }
    std::vector<int> Rows;

private:
    std::unique_ptr<TImageReader> m_reader;
};

TEST(ComposeTest, DrawsPixelByPixelOnTheDesktopColor)
{
    const TBitmap source = NumberedBitmap(2, 2); // 1 2 / 3 4
    constexpr TColor color = 0x0000AA;           // red; in a pixel the third byte
    constexpr TPixel b = 0xAA0000;
    const std::pair<std::uint8_t, TRows> cases[] = {
        {dmTiled, {{1, 2, 1, 2, 1}, {3, 4, 3, 4, 3}, {1, 2, 1, 2, 1}}},
        {dmCentered, {{b, b, 1, 2, b}, {b, b, 3, 4, b}, {b, b, b, b, b}}},
        {dmStretched, {{1, 1, 1, 2, 2}, {1, 1, 1, 2, 2}, {3, 3, 3, 4, 4}}},
        {dmMirrorTiled, {{1, 2, 2, 1, 1}, {3, 4, 4, 3, 3}, {3, 4, 4, 3, 3}}},
        {dmFitHorizontally, {{1, 1, 1, 2, 2}, {1, 1, 1, 2, 2}, {3, 3, 3, 4, 4}}},
        {dmFitVertically, {{b, 1, 1, 2, b}, {b, 1, 1, 2, b}, {b, 3, 3, 4, b}}},
        {9, {{1, 2}, {3, 4}}},
    };
    for (const auto& [mode, rows] : cases) {
        SCOPED_TRACE(int{mode});
        const auto reader = ReadBitmap(source);
        EXPECT_EQ(RowsOf(ComposeDisplayMode(*reader, Item(mode, color), {5, 3})), rows);
    }
}

TEST(ComposeTest, ReadsEveryNeededRowOnceFromTheTop)
{
    const TBitmap source = NumberedBitmap(4, 9);
    const std::pair<std::uint8_t, std::vector<int>> cases[] = {
        {dmMirrorTiled, {0, 1, 2, 3, 4, 5, 6, 7, 8}},
        {dmCentered, {2, 3, 4, 5}},
        {dmStretched, {0, 2, 4, 6}},
        {dmFitHorizontally, {3, 4, 5}}, // 13 or 14 rows a screen of which shows four
    };
    for (const auto& [mode, rows] : cases) {
        TWatchedReader reader(source);
        ComposeDisplayMode(reader, Item(mode), {6, mode == dmMirrorTiled ? 40 : 4});
        EXPECT_EQ(reader.Rows, rows) << int{mode};
    }
}

TEST(ComposeTest, ClearsTheUnusedByte)
{
    const TBitmap source = BitmapOf({{0xFF123456}});
    const TBitmap bitmap = ComposeDisplayMode(*ReadBitmap(source), Item(dmCentered), {3, 1});
    EXPECT_EQ(bitmap.Row(0)[1], 0x123456U);
}

TEST(ComposeTest, TintComesBeforeTheAddOns)
{
    TMuWallpaper item = Item(dmCentered, 0xFFFFFF);
    item.GammaStyle = gsSolid;
    item.GammaStartRed = item.GammaStartGreen = item.GammaStartBlue = -128;
    const TBitmap source = BitmapOf({{0x804020}});
    const TBitmap bitmap = ComposePicture(*ReadBitmap(source), item, {3, 1}, [](TBitmap& picture) {
        EXPECT_EQ(RowsOf(picture), (TRows{{0x7F7F7F, 0x402010, 0x7F7F7F}}));
        picture.Row(0)[0] = 1;
    });
    EXPECT_EQ(bitmap.Row(0)[0], 1U);
}

TEST(ComposeTest, APictureWithoutPixelsIsRefused)
{
    const TBitmap empty(0, 5);
    EXPECT_THROW(ComposeDisplayMode(*ReadBitmap(empty), Item(dmTiled), {3, 3}), EInvalidImage);
}

TEST(ComposeTest, ResizeTakesTheNearestPixel)
{
    TBitmap bitmap = NumberedBitmap(3, 2);
    ResizeBitmap(bitmap, 5, 1);
    EXPECT_EQ(RowsOf(bitmap), (TRows{{1, 1, 2, 2, 3}}));
    ResizeBitmap(bitmap, 0, 1);
    EXPECT_EQ(bitmap.Size(), (TSize{0, 1}));
}

TEST(ComposeTest, FillBackgroundTakesTheScreensSize)
{
    TBitmap bitmap;
    FillBackground(bitmap, {2, 1}, 0x112233);
    EXPECT_EQ(RowsOf(bitmap), (TRows{{0x332211, 0x332211}}));
}

TEST(ComposeTest, AnUnusableTargetFallsBackToTheTemporaryFolder)
{
    const TTestFolder folder;
    const TBitmap bitmap = NumberedBitmap(2, 2);
    EXPECT_EQ(SaveWallpaper(bitmap, folder.File("a.bmp")), folder.File("a.bmp"));
    for (const std::string& unusable :
         {std::string(), folder.File("none/a.bmp"), folder.File(".")}) {
        const std::string written = SaveWallpaper(bitmap, unusable);
        EXPECT_EQ(FileNamePart(written), "temp.bmp");
        EXPECT_EQ(RowsOf(LoadImageFile(written)), RowsOf(bitmap));
        DeleteFileIfPresent(written);
    }
}

TEST(ComposeTest, AScreenOf256ColoursGetsAPictureOfTheNearestOfThem)
{
    const TTestFolder folder;
    const TBitmap bitmap =
        BitmapOf({{0x000000, 0xFFFFFF, 0xFF0000}, {0x00FF00, 0x0000FF, 0x346B99}});
    SaveWallpaper(bitmap, folder.File("a.bmp"), 8);
    EXPECT_EQ(ReadWholeFile(folder.File("a.bmp")).size(), 54U + 252 * 4 + 2 * 4);
    EXPECT_EQ(RowsOf(LoadImageFile(folder.File("a.bmp"))),
              (TRows{{0x000000, 0xFFFFFF, 0xFF0000}, {0x00FF00, 0x0000FF, 0x338099}}));
}

TEST(ComposeTest, NumbersTheFileFromTheSecondDesktopOn)
{
    EXPECT_EQ(WallpaperBitmapName(0), "MuralaWallpaper.bmp");
    EXPECT_EQ(WallpaperBitmapName(1), "MuralaWallpaper.bmp");
    EXPECT_EQ(WallpaperBitmapName(2), "MuralaWallpaper2.bmp");
}

} // namespace

} // namespace murala
