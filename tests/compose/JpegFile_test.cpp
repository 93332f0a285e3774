#include "uJpegFile.h"

#include "Pictures.h"

using namespace murala;

namespace
{

// Smooth colours with some texture, as photographs have them; green grows downwards.
TBitmap PhotoBitmap(int width, int height)
{
    TBitmap bitmap(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            bitmap.Row(y)[x] = static_cast<TPixel>(
                (x * 255 / width) << 16 | (y * 255 / height) << 8 | ((x * 7 + y * 13) % 64 + 96));
    return bitmap;
}

std::string PhotoJpeg(const TTempFolder& folder, int width, int height, int quality = 95)
{
    std::string name = folder.File("photo.bmp"); // the content counts, not the name
    SaveJpegFile(PhotoBitmap(width, height), name, quality);
    return name;
}

// A header for a picture of the given size, and scans of a few bytes. `frame` is 0xC0 for a grey
// baseline and 0xC2 for a coloured progressive picture.
std::string TinyScans(int frame, int width, int height, int scans)
{
    const int count = frame == 0xC0 ? 1 : 3;
    std::string file =
        Bytes({0xFF, 0xD8, 0xFF, 0xDB, 0, 67, 0}) + std::string(64, '\1') +
        Bytes({0xFF, frame, 0, 8 + 3 * count, 8, height >> 8, height, width >> 8, width, count});
    for (int component = 1; component <= count; ++component)
        file += Bytes({component, 0x11, 0});
    for (const int table : {0x00, 0x10}) // one code, of one bit, for the symbol 0
        file += Bytes({0xFF, 0xC4, 0, 20, table, 1}) + std::string(16, '\0');
    for (int i = 0; i < scans; ++i)
        file += Bytes({0xFF, 0xDA, 0, 8, 1, 1, 0, 0, frame == 0xC0 ? 63 : 0, 0, 0});
    return file + Bytes({0xFF, 0xD9});
}

} // namespace

TEST(JpegFile, WrittenPicturesAreReadBack)
{
    const TTempFolder folder;
    const TBitmap photo = PhotoBitmap(61, 47), read = LoadImageFile(PhotoJpeg(folder, 61, 47));
    ASSERT_EQ(read.Size(), photo.Size());
    EXPECT_EQ(ImageFileSize(folder.File("photo.bmp")), photo.Size());
    for (int i = 0; i < 61 * 47; ++i)
        for (const unsigned shift : {0U, 8U, 16U})
            ASSERT_NEAR(read.Row(0)[i] >> shift & 255U, photo.Row(0)[i] >> shift & 255U, 60) << i;
    const std::size_t size = ReadWholeFile(folder.File("photo.bmp")).size();
    EXPECT_LT(2 * ReadWholeFile(PhotoJpeg(folder, 61, 47, 10)).size(), size);
}

TEST(JpegFile, PassingRowsOverChangesNoPixel)
{
    const TTempFolder folder;
    std::string photo = ReadWholeFile(PhotoJpeg(folder, 50, 200));
    for (const char factors : {0x11, 0x12, 0x14, 0x21, 0x22, 0x24, 0x42}) {
        // The first component's sampling factors stand behind the frame header's ten bytes. Other
        // factors scramble the picture, but it stays one.
        photo.at(photo.find("\xFF\xC0") + 11) = factors;
        const std::string name = folder.Write("photo.jpg", photo);
        const TRows whole = RowsOf(LoadImageFile(name));
        for (const int step : {2, 3, 7, 16, 17, 33, 100}) {
            const auto reader = OpenImage(name);
            TBitmap row(50, 1);
            for (int y = step - 1; y < 200; y += step) {
                reader->ReadRow(y, row.Row(0));
                ASSERT_EQ(RowsOf(row)[0], whole[y]) << y << " by " << step << ", " << int{factors};
            }
        }
    }
}

TEST(JpegFile, WhatAProgramNotedIsPassedOver)
{
    const TTempFolder folder;
    std::string photo = ReadWholeFile(PhotoJpeg(folder, 50, 40));
    const TRows whole = RowsOf(LoadImageFile(folder.File("photo.bmp")));
    // Several times as much as is read at once.
    for (const int size : {65000, 65535, 3, 2, 65534})
        photo.insert(2, Bytes({0xFF, 0xEB, size >> 8, size}) +
                            std::string(static_cast<std::size_t>(size) - 2, '\xFF'));
    EXPECT_EQ(RowsOf(LoadImageFile(folder.Write("noted.jpg", photo))), whole);
}

TEST(JpegFile, DecodesAtReducedSize)
{
    const TTempFolder folder;
    const auto reader = OpenImage(PhotoJpeg(folder, 100, 60), {.Divisor = 8, .Fast = true});
    ASSERT_EQ(reader->Size(), (TSize{13, 8}));
    TBitmap row(13, 1);
    reader->ReadRow(7, row.Row(0));
    EXPECT_GT(row.Row(0)[6] >> 8U & 255U, 200U);
}

TEST(JpegFile, ACutOffFileGivesWhatThereIs)
{
    const TTempFolder folder;
    const TRows whole = RowsOf(LoadImageFile(PhotoJpeg(folder, 64, 64)));
    const std::string content = ReadWholeFile(folder.File("photo.bmp"));
    for (std::size_t size = 0; size < content.size(); size += 7)
        try {
            const auto rows =
                RowsOf(LoadImageFile(folder.Write("cut.jpg", content.substr(0, size))));
            EXPECT_TRUE(size > content.size() * 7 / 8 || rows.at(63) != whole[63]) << size;
            EXPECT_TRUE(size < content.size() / 2 || rows[0] == whole[0]) << size;
        } catch (const EInvalidImage&) {
            EXPECT_LT(size, 700U); // in the headers
        }
}

TEST(JpegFile, RefusesWhatCannotBeDecodedInReason)
{
    const TTempFolder folder;
    const struct {
        std::string Content, Reason;
    } cases[] = {{TinyScans(0xC0, 100, 100, 1), "none"},
                 {TinyScans(0xC2, 4000, 3000, 20), "none"},
                 {TinyScans(0xC0, 65500, 65500, 1), "JPEG: the size is out of range"},
                 {TinyScans(0xC2, 20000, 5000, 1), "JPEG: too large for several scans"},
                 {TinyScans(0xC2, 4000, 3000, 400), "JPEG: "},
                 {TinyScans(0xC0, 0, 100, 1), "JPEG: "},
                 {"\xFF\xD8\xFF", "JPEG: "}};
    for (const auto& [content, reason] : cases)
        try {
            OpenImage(folder.Write("a.jpg", content));
            EXPECT_EQ(reason, "none");
        } catch (const EInvalidImage& error) {
            EXPECT_EQ(error.Reason.substr(0, reason.size()), reason);
        }
}

TEST(JpegFile, ScansAreTakenInPieceByPiece)
{
    const TTempFolder folder;
    for (const char* seed : {"progressive", "arithmetic-progressive", "color420", "grey"})
        for (const int divisor : {1, 2, 8}) {
            const std::string name = std::string(MURALA_SEEDS "/Jpeg/") + seed;
            const auto whole = OpenImage(name, {.Divisor = divisor});
            const auto pieces = OpenImage(name, {.Divisor = divisor, .InPieces = true});
            ASSERT_EQ(whole->Size(), pieces->Size());
            while (pieces->Prepare()) {
            }
            EXPECT_FALSE(pieces->Prepare());
            const auto width = static_cast<std::size_t>(whole->Size().Width);
            std::vector<TPixel> expected(width), row(width);
            for (int y = 0; y < whole->Size().Height; y += 2) {
                whole->ReadRow(y, expected.data());
                pieces->ReadRow(y, row.data());
                EXPECT_EQ(row, expected) << seed << divisor << ' ' << y;
            }
        }
}

TEST(JpegFile, PiecesEndWhereThereAreTooManyScansOrTooFewBytes)
{
    const TTempFolder folder;
    const auto many = folder.Write("many", TinyScans(0xC2, 4000, 4000, 300));
    const auto reader = OpenImage(many, {.Divisor = 8, .InPieces = true});
    EXPECT_TRUE(reader->Prepare()); // far from all at once
    EXPECT_THROW(while (reader->Prepare()){}, EImageFormat);
    std::string content = ReadWholeFile(MURALA_SEEDS "/Jpeg/progressive");
    const auto cut = folder.Write("cut", content.substr(0, content.size() * 2 / 3));
    const auto rest = OpenImage(cut, {.InPieces = true});
    while (rest->Prepare()) {
    }
    std::vector<TPixel> row(static_cast<std::size_t>(rest->Size().Width));
    rest->ReadRow(rest->Size().Height - 1, row.data());
}
