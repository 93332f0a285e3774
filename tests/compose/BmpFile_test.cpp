#include "Pictures.h"

#include <climits>

namespace murala
{

namespace
{

// The parts of a BMP file; every part may be replaced by a wrong one.
struct TBmp {
    std::int32_t Width = 2, Height = 2;
    std::uint32_t BitCount = 24, Compression = 0, HeaderSize = 40, ColorsUsed = 0;
    TBytes Masks = {}, Palette = {}, Pixels = {};
    std::int64_t Offset = -1; // computed

    std::string Content() const
    {
        TBytes header;
        header.Long(HeaderSize);
        if (HeaderSize == 12) {
            header.Word(static_cast<std::uint32_t>(Width)).Word(static_cast<std::uint32_t>(Height));
            header.Word(1).Word(BitCount);
        } else {
            header.Long(static_cast<std::uint32_t>(Width)).Long(static_cast<std::uint32_t>(Height));
            header.Word(1).Word(BitCount).Long(Compression).Long(0).Long(0).Long(0);
            header.Long(ColorsUsed).Long(0);
        }
        header.Append(Masks);
        while (header.Size() < HeaderSize)
            header.Byte({0});
        header.Append(Palette);
        const std::uint32_t start = 14 + header.Size();
        TBytes file;
        file.Byte({'B', 'M'}).Long(start + Pixels.Size()).Long(0);
        file.Long(Offset < 0 ? start : static_cast<std::uint32_t>(Offset));
        return file.Append(header).Append(Pixels).Content();
    }
};

TBytes Bytes(std::initializer_list<int> values)
{
    return TBytes().Byte(values);
}
TBytes Longs(std::initializer_list<std::uint32_t> values)
{
    TBytes bytes;
    for (const std::uint32_t value : values)
        bytes.Long(value);
    return bytes;
}

const TBytes Palette4 = Longs({0x000000, 0x0000FF, 0x00FF00, 0xFF0000});

struct TFormCase {
    const char* Name;
    TBmp File;
    TRows Rows;
};

void PrintTo(const TFormCase& test, std::ostream* out)
{
    *out << test.Name;
}

class BmpFormTest : public testing::TestWithParam<TFormCase>
{
};

TEST_P(BmpFormTest, GivesItsPixels)
{
    const TTestFolder folder;
    const std::string name = folder.Write("picture.jpg", GetParam().File.Content());
    EXPECT_EQ(RowsOf(LoadImageFile(name)), GetParam().Rows);
    const TSize size = ImageFileSize(name);
    EXPECT_EQ(static_cast<std::size_t>(size.Height), GetParam().Rows.size());
    EXPECT_EQ(static_cast<std::size_t>(size.Width), GetParam().Rows[0].size());
}

const TFormCase FormCases[] = {
    {"OneBit",
     {.Width = 10,
      .Height = 1,
      .BitCount = 1,
      .Palette = Longs({0x111111, 0x222222}),
      .Pixels = Bytes({0b10100000, 0b01000000, 0, 0})},
     {{0x222222, 0x111111, 0x222222, 0x111111, 0x111111, 0x111111, 0x111111, 0x111111, 0x111111,
       0x222222}}},
    {"FourBitsOddWidth",
     {.Width = 3,
      .Height = 2,
      .BitCount = 4,
      .ColorsUsed = 4,
      .Palette = Palette4,
      .Pixels = Bytes({0x12, 0x30, 0, 0, 0x01, 0x20, 0, 0})},
     {{0x000000, 0x0000FF, 0x00FF00}, {0x0000FF, 0x00FF00, 0xFF0000}}},
    {"EightBitsTopDownWithIndexesBehindThePalette",
     {.Width = 2,
      .Height = -2,
      .BitCount = 8,
      .ColorsUsed = 4,
      .Palette = Palette4,
      .Pixels = Bytes({3, 1, 0, 0, 255, 2, 0, 0})},
     {{0xFF0000, 0x0000FF}, {0x000000, 0x00FF00}}},
    {"CoreHeaderHasThreeBytePalette",
     {.Width = 2,
      .Height = 1,
      .BitCount = 1,
      .HeaderSize = 12,
      .Palette = Bytes({1, 2, 3, 4, 5, 6}),
      .Pixels = Bytes({0x40, 0, 0, 0})},
     {{0x030201, 0x060504}}},
    {"ShortOs2Header",
     {.Width = 1, .Height = 1, .HeaderSize = 64, .Pixels = Bytes({9, 8, 7, 0})},
     {{0x070809}}},
    {"SixteenBitsAreFiveEach",
     {.Width = 3,
      .Height = 1,
      .BitCount = 16,
      .Pixels = TBytes().Word(0x7C00).Word(0x0210).Word(1)},
     {{0xFF0000, 0x008484, 0x000008}}},
    {"SixteenBitFields565",
     {.Width = 2,
      .Height = 1,
      .BitCount = 16,
      .Compression = 3,
      .Masks = Longs({0xF800, 0x07E0, 0x001F}),
      .Pixels = TBytes().Word(0x07C0).Word(0x8410)},
     {{0x00FB00, 0x848284}}},
    {"BitFieldsOfTenBits",
     {.Width = 2,
      .Height = 1,
      .BitCount = 32,
      .Compression = 3,
      .Masks = Longs({0x3FF00000, 0x000FFC00, 0x000003FF}),
      .Pixels = Longs({0x3FF00000 | 512 << 10 | 1, 514 << 20})},
     {{0xFF8000, 0x800000}}},
    {"AlphaBitFieldsInALargeHeader",
     {.Width = 1,
      .Height = 1,
      .BitCount = 32,
      .Compression = 6,
      .HeaderSize = 108,
      .Masks = Longs({0xFF, 0xFF00, 0xFF0000, 0xFF000000}),
      .Pixels = Longs({0x80332211})},
     {{0x112233}}},
    {"AlphaBitFieldsBehindTheHeader",
     {.Width = 1,
      .Height = 1,
      .BitCount = 32,
      .Compression = 6,
      .Masks = Longs({0xFF, 0xFF00, 0, 0xFF000000}),
      .Pixels = Longs({0x80332211})},
     {{0x112200}}},
    {"OffsetLeftOut",
     {.Width = 2,
      .Height = 1,
      .BitCount = 1,
      .Palette = Longs({0x111111, 0x222222}),
      .Pixels = Bytes({0x40, 0, 0, 0}),
      .Offset = 0},
     {{0x111111, 0x222222}}},
    {"RunLength8WithDeltaAndLiteral",
     {.Width = 5,
      .Height = 3,
      .BitCount = 8,
      .Compression = 1,
      .ColorsUsed = 4,
      .Palette = Palette4,
      .Pixels = Bytes({3, 1, 0, 3, 2, 3, 2, 0, 0, 0, 0, 2, 2, 1, 1, 2, 0, 1})},
     {{0, 0, 0x00FF00, 0, 0}, {0, 0, 0, 0, 0}, {0xFF, 0xFF, 0xFF, 0x00FF00, 0xFF0000}}},
    {"RunLength4WithOddRunsAndLiteral",
     {.Width = 8,
      .Height = 1,
      .BitCount = 4,
      .Compression = 2,
      .ColorsUsed = 4,
      .Palette = Palette4,
      .Pixels = Bytes({3, 0x12, 0, 5, 0x32, 0x13, 0x20, 0, 0, 1})},
     {{0xFF, 0x00FF00, 0xFF, 0xFF0000, 0x00FF00, 0xFF, 0xFF0000, 0x00FF00}}},
    {"RunLengthOffEveryEdge",
     {.Width = 2,
      .Height = 2,
      .BitCount = 8,
      .Compression = 1,
      .ColorsUsed = 4,
      .Palette = Palette4,
      .Pixels = Bytes({255, 1, 0, 2, 255, 0, 255, 3, 0, 0, 1, 2, 0, 0, 9, 1, 0, 2, 0, 255, 9, 1})},
     {{0x00FF00, 0}, {0xFF, 0xFF}}},
    {"RunLengthCutOff",
     {.Width = 2,
      .Height = 1,
      .BitCount = 8,
      .Compression = 1,
      .ColorsUsed = 4,
      .Palette = Palette4,
      .Pixels = Bytes({1, 1, 0, 100, 2})},
     {{0xFF, 0x00FF00}}},
    {"CutOffInTheUpperRow",
     {.Pixels = Bytes({1, 2, 3, 4, 5, 6, 0, 0, 7, 8, 9, 10})},
     {{0x090807, 0x00000A}, {0x030201, 0x060504}}},
};
INSTANTIATE_TEST_SUITE_P(Forms, BmpFormTest, testing::ValuesIn(FormCases),
                         [](const auto& test) { return test.param.Name; });

struct THostileCase {
    const char* Name;
    TBmp File;
};

TEST(BmpFileTest, RefusesWhatCannotBeAPicture)
{
    const THostileCase cases[] = {
        {"no pixels at all", {}},
        {"width 0", {.Width = 0}},
        {"negative width", {.Width = -2}},
        {"height 0", {.Height = 0}},
        {"the smallest height", {.Height = INT_MIN}},
        {"both sides huge", {.Width = INT_MAX, .Height = INT_MAX}},
        {"65,535 x 65,535", {.Width = 65535, .Height = 65535}},
        {"one side huge", {.Width = 1, .Height = 1 << 27}},
        {"run lengths of many pixels",
         {.Width = 16384, .Height = 16384, .BitCount = 8, .Compression = 1}},
        {"unknown bit count", {.BitCount = 7}},
        {"bit count 0", {.BitCount = 0}},
        {"embedded JPEG", {.BitCount = 0, .Compression = 4}},
        {"run lengths of 24 bits", {.Compression = 4, .HeaderSize = 64}},
        {"Huffman code", {.BitCount = 1, .Compression = 3, .HeaderSize = 64}},
        {"bit fields of an old header", {.BitCount = 16, .Compression = 3, .HeaderSize = 64}},
        {"unknown header", {.HeaderSize = 13}},
        {"huge header", {.HeaderSize = 5000}},
        {"pixels behind the end", {.Offset = 0xFFFFFFF0}},
    };
    const TTestFolder folder;
    for (const THostileCase& test : cases) {
        SCOPED_TRACE(test.Name);
        EXPECT_THROW(LoadImageFile(folder.Write("a.bmp", test.File.Content())), EInvalidImage);
    }
}

TEST(BmpFileTest, EveryCutOffFileEndsWell)
{
    const TTestFolder folder;
    for (const TFormCase& test : FormCases) {
        const std::string content = test.File.Content();
        for (std::size_t size = 0; size < content.size(); ++size) {
            try {
                const TBitmap bitmap =
                    LoadImageFile(folder.Write("cut.bmp", content.substr(0, size)));
                EXPECT_EQ(bitmap.Width(), test.File.Width);
            } catch (const EInvalidImage&) {
            }
        }
    }
}

} // namespace

} // namespace murala
