#include "Pictures.h"

#include <climits>

using namespace murala;

namespace
{

// The parts of a BMP file; every part may be replaced by a wrong one.
struct TBmp {
    int Width = 2, Height = 2, BitCount = 24, Compression = 0;
    std::string Pixels = std::string(64, '\1'), Palette = {}, Masks = {};
    std::size_t HeaderSize = 40;
    std::int64_t ColorsUsed = 0, Offset = -1; // computed

    std::string Content() const
    {
        std::string header = Longs({static_cast<int>(HeaderSize)});
        if (HeaderSize == 12)
            header += Words({Width, Height, 1, BitCount});
        else
            header +=
                Longs({Width, Height, 1 | BitCount << 16, Compression, 0, 0, 0, ColorsUsed, 0});
        header += Masks;
        header.resize(std::max(header.size(), HeaderSize));
        header += Palette;
        const int start = 14 + static_cast<int>(header.size());
        return "BM" + Longs({0, 0, Offset < 0 ? start : Offset}) + header + Pixels;
    }
};

constexpr TPixel R = 0xFF0000, G = 0x00FF00, B = 0x0000FF;
const std::string Colors = Longs({0, B, G, R});

const std::pair<TBmp, TRows> Forms[] = {
    {{9, 1, 1, 0, Bytes({0xA0, 0x80, 0, 0}), Longs({R, G})}, {{G, R, G, R, R, R, R, R, G}}},
    // Indexes behind the palette, and behind the colours that are used.
    {{3, 2, 4, 0, Bytes({0x12, 0x30, 0, 0, 1, 0x50, 0, 0}), Colors}, {{0, B, 0}, {B, G, R}}},
    {{2, -2, 8, 0, Bytes({3, 1, 0, 0, 255, 2, 0, 0}), Colors, "", 40, 3}, {{0, B}, {0, G}}},
    {{1, 1, 24, 0, Bytes({9, 8, 7, 0}), "", "", 64}, {{0x070809}}},
    {{3, 1, 16, 0, Words({0x7C00, 0x0210, 1})}, {{R, 0x008484, 8}}},
    {{2, 1, 16, 3, Words({0x07C0, 0x8410}), "", Longs({0xF800, 0x7E0, 31})}, {{0xFB00, 0x848284}}},
    {{2, 1, 32, 3, Longs({1023 << 20 | 512 << 10 | 1, 514 << 20}), "",
      Longs({1023 << 20, 1023 << 10, 1023})},
     {{0xFF8000, 0x800000}}},
    // Alpha, the masks in the header and behind it.
    {{1, 1, 32, 6, Longs({0x80332211}), "", Longs({B, G, R, 0xFF000000}), 108}, {{0x112233}}},
    {{1, 1, 32, 6, Longs({0x80332211}), "", Longs({B, G, 0, 0xFF000000})}, {{0x112200}}},
    // A core header, and one without the offset.
    {{2, 1, 1, 0, Bytes({64, 0, 0, 0}), Bytes({0, 0, 255, 0, 255, 0}), "", 12}, {{R, G}}},
    {{2, 1, 1, 0, Bytes({128, 0, 0, 0}), Longs({R, G}), "", 40, 0, 0}, {{G, R}}},
    // Run lengths with a step aside, with odd runs and literals, and off every edge.
    {{5, 3, 8, 1, Bytes({3, 1, 0, 3, 2, 3, 2, 0, 0, 0, 0, 2, 2, 1, 1, 2, 0, 1}), Colors},
     {{0, 0, G, 0, 0}, {0, 0, 0, 0, 0}, {B, B, B, G, R}}},
    {{10, 1, 4, 2, Bytes({3, 0x12, 0, 6, 0x32, 0x13, 0x21, 0, 1, 0x30}), Colors},
     {{B, G, B, R, G, B, R, G, B, R}}},
    {{2, 2, 8, 1, Bytes({255, 1, 0, 2, 255, 0, 255, 3, 0, 0, 1, 2, 0, 0, 9, 1, 0, 2, 0, 255, 9, 1}),
      Colors},
     {{G, 0}, {B, B}}},
    // Cut off.
    {{2, 1, 8, 1, Bytes({1, 1, 0, 100, 2}), Colors}, {{B, G}}},
    {{2, 2, 24, 0, Bytes({0, 0, 255, 0, 255, 0, 0, 0, 255, 0, 0, 9})}, {{B, 9}, {R, G}}}};

} // namespace

TEST(BmpFile, EveryFormGivesItsPixelsAndEndsWellWhereverItIsCutOff)
{
    const TTempFolder folder;
    for (const auto& [file, rows] : Forms) {
        SCOPED_TRACE(testing::PrintToString(rows));
        const std::string content = file.Content();
        const std::string name = folder.Write("picture.jpg", content);
        const TBitmap bitmap = LoadImageFile(name);
        EXPECT_EQ(RowsOf(bitmap), rows);
        EXPECT_EQ(ImageFileSize(name), bitmap.Size());
        for (std::size_t size = 0; size < content.size(); ++size)
            try {
                folder.Write("picture.jpg", content.substr(0, size));
                EXPECT_EQ(LoadImageFile(name).Size(), bitmap.Size());
            } catch (const EInvalidImage&) {
            }
    }
}

TEST(BmpFile, PassingRowsOverChangesNoPixel)
{
    constexpr int width = 150, height = 2000; // several blocks
    const TTempFolder folder;
    const TBitmap picture = NumberedBitmap(width, height);
    std::string content = ReadWholeFile([&] {
        SaveBitmapFile(picture, folder.File("a.bmp"));
        return folder.File("a.bmp");
    }());
    for (const bool isTopDown : {false, true}) {
        if (isTopDown)
            content.replace(22, 4, Longs({-height}));
        const std::string name = folder.Write("a.bmp", content);
        for (const int step : {1, 2, 3, 7, 100, 700, 1999}) {
            const auto reader = OpenImage(name);
            TBitmap row(width, 1);
            for (int y = step - 1; y < height; y += step) {
                reader->ReadRow(y, row.Row(0));
                const int stored = isTopDown ? height - 1 - y : y;
                ASSERT_TRUE(std::equal(row.Row(0), row.Row(0) + width, picture.Row(stored)))
                    << y << " by " << step << (isTopDown ? " from the top" : " from the bottom");
            }
        }
    }
}

TEST(BmpFile, RefusesWhatCannotBeAPicture)
{
    const struct {
        const char* Reason;
        std::vector<TBmp> Files;
    } cases[] = {{"BMP: there are no pixels", {{2, 2, 24, 0, ""}, {.Offset = 0xFFFFFFF0}}},
                 {"BMP: the height is out of range", {{2, INT_MIN}}},
                 {"BMP: the size is out of range",
                  {{0}, {-2}, {2, 0}, {INT_MAX, INT_MAX}, {65535, 65535}, {1, 1 << 27}}},
                 {"BMP: too large for run lengths", {{16384, 16384, 8, 1}}},
                 {"BMP: unknown or incomplete header", {{.HeaderSize = 13}, {.HeaderSize = 5000}}},
                 {"BMP: unknown combination of bit count and compression",
                  {{2, 2, 7}, {2, 2, 0, 4}, {2, 2, 24, 4}, {2, 2, 1, 3}}},
                 {"BMP: unknown compression", {{2, 2, 16, 3, "x", "", "", 64}}}};
    const TTempFolder folder;
    for (const auto& [reason, files] : cases)
        for (const TBmp& file : files)
            try {
                LoadImageFile(folder.Write("a.bmp", file.Content()));
                ADD_FAILURE() << reason << ' ' << &file - files.data();
            } catch (const EInvalidImage& error) {
                EXPECT_EQ(error.Reason, reason) << &file - files.data();
            }
}
