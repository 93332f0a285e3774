#include "uJpegFile.h"

#include "Pictures.h"

#include <cstdlib>

namespace murala
{

namespace
{

std::string PhotoJpeg(const TTestFolder& folder, int width, int height)
{
    const std::string name = folder.File("photo.bmp"); // the content counts, not the name
    SaveJpegFile(PhotoBitmap(width, height), name, 95);
    return name;
}

int LargestDifference(const TBitmap& a, const TBitmap& b)
{
    int largest = 0;
    for (int y = 0; y < a.Height(); ++y)
        for (int x = 0; x < a.Width(); ++x)
            for (const int shift : {0, 8, 16}) {
                const auto channel = [=](const TBitmap& bitmap) {
                    return static_cast<int>(bitmap.Row(y)[x] >> shift & 255U);
                };
                largest = std::max(largest, std::abs(channel(a) - channel(b)));
            }
    return largest;
}

TEST(JpegFileTest, WrittenPicturesAreReadBack)
{
    const TTestFolder folder;
    const TBitmap read = LoadImageFile(PhotoJpeg(folder, 61, 47));
    ASSERT_EQ(read.Size(), (TSize{61, 47}));
    EXPECT_LT(LargestDifference(read, PhotoBitmap(61, 47)), 60);
    EXPECT_EQ(ImageFileSize(folder.File("photo.bmp")), (TSize{61, 47}));
}

TEST(JpegFileTest, QualityDecidesTheSize)
{
    const TTestFolder folder;
    SaveJpegFile(PhotoBitmap(64, 64), folder.File("low"), 10);
    SaveJpegFile(PhotoBitmap(64, 64), folder.File("high"), 95);
    EXPECT_LT(2 * ReadWholeFile(folder.File("low")).size(),
              ReadWholeFile(folder.File("high")).size());
}

// The first component's sampling factors stand behind the frame header's ten bytes. Other factors
// scramble the picture, but it stays one.
std::string WithSampling(std::string jpeg, char factors)
{
    jpeg.at(jpeg.find("\xFF\xC0") + 11) = factors;
    return jpeg;
}

TEST(JpegFileTest, PassingRowsOverChangesNoPixel)
{
    const TTestFolder folder;
    const std::string photo = ReadWholeFile(PhotoJpeg(folder, 50, 200));
    for (const char factors : {0x11, 0x12, 0x14, 0x21, 0x22, 0x24, 0x42}) {
        const std::string name = folder.Write("photo.jpg", WithSampling(photo, factors));
        const TRows whole = RowsOf(LoadImageFile(name));
        for (const int step : {2, 3, 7, 16, 17, 33, 100}) {
            const auto reader = OpenImage(name);
            TBitmap row(50, 1);
            for (int y = step - 1; y < 200; y += step) {
                reader->ReadRow(y, row.Row(0));
                ASSERT_EQ(RowsOf(row)[0], whole[static_cast<std::size_t>(y)])
                    << "row " << y << " by " << step << ", factors " << int{factors};
            }
        }
    }
}

TEST(JpegFileTest, DecodesAtReducedSize)
{
    const TTestFolder folder;
    const auto reader = OpenImage(PhotoJpeg(folder, 100, 60), {.Divisor = 8, .Fast = true});
    EXPECT_EQ(reader->Size(), (TSize{13, 8}));
    TBitmap row(13, 1);
    reader->ReadRow(7, row.Row(0));
    EXPECT_GT(row.Row(0)[6] >> 8U & 255U, 200U); // green grows downwards
}

TEST(JpegFileTest, ACutOffFileGivesWhatThereIs)
{
    const TTestFolder folder;
    const std::string content = ReadWholeFile(PhotoJpeg(folder, 64, 64));
    const TBitmap whole = LoadImageFile(folder.File("photo.bmp"));
    const TBitmap half =
        LoadImageFile(folder.Write("half.jpg", content.substr(0, content.size() * 3 / 4)));
    ASSERT_EQ(half.Size(), whole.Size());
    EXPECT_EQ(RowsOf(half)[0], RowsOf(whole)[0]);
    EXPECT_NE(RowsOf(half)[63], RowsOf(whole)[63]);
    for (std::size_t size = 0; size < content.size(); size += 7) {
        try {
            LoadImageFile(folder.Write("cut.jpg", content.substr(0, size)));
        } catch (const EInvalidImage&) {
            EXPECT_LT(size, 700U); // in the headers
        }
    }
}

// A header for a picture of the given size, and scans of a few bytes. `frame` is 0xC0 for a
// baseline and 0xC2 for a progressive picture.
std::string TinyScans(int frame, int width, int height, int scans)
{
    TBytes file;
    file.Byte({0xFF, 0xD8, 0xFF, 0xDB, 0, 67, 0});
    for (int i = 0; i < 64; ++i)
        file.Byte({1});
    file.Byte({0xFF, frame, 0, 11, 8, height >> 8, height & 255, width >> 8, width & 255});
    file.Byte({1, 1, 0x11, 0});
    for (const int table : {0x00, 0x10}) { // one code, of one bit, for the symbol 0
        file.Byte({0xFF, 0xC4, 0, 20, table, 1});
        for (int i = 0; i < 15; ++i)
            file.Byte({0});
        file.Byte({0});
    }
    for (int i = 0; i < scans; ++i)
        file.Byte({0xFF, 0xDA, 0, 8, 1, 1, 0, 0, frame == 0xC0 ? 63 : 0, 0, 0});
    return file.Byte({0xFF, 0xD9}).Content();
}

TEST(JpegFileTest, RefusesWhatCannotBeDecodedInReason)
{
    const TTestFolder folder;
    const auto load = [&](const std::string& content) {
        OpenImage(folder.Write("a.jpg", content));
    };
    EXPECT_NO_THROW(load(TinyScans(0xC0, 100, 100, 1)));
    EXPECT_NO_THROW(load(TinyScans(0xC2, 4000, 3000, 20)));
    EXPECT_THROW(load(TinyScans(0xC0, 65500, 65500, 1)), EInvalidImage);
    EXPECT_THROW(load(TinyScans(0xC2, 65500, 4200, 1)), EInvalidImage) << "over the memory";
    EXPECT_THROW(load(TinyScans(0xC2, 4000, 3000, 400)), EInvalidImage) << "too many scans";
    EXPECT_THROW(load(TinyScans(0xC0, 0, 100, 1)), EInvalidImage);
    EXPECT_THROW(load("\xFF\xD8\xFF"), EInvalidImage);
}

} // namespace

} // namespace murala
