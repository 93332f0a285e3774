#include "uImageFile.h"

#include "Pictures.h"

namespace murala
{

namespace
{

TEST(ImageFileTest, WhatIsNoPictureIsNamedInTheMessage)
{
    const TTestFolder folder;
    const std::string names[] = {
        folder.File("missing.jpg"),
        folder.Write("empty.jpg", ""),
        folder.Write("short.bmp", "B"),
        folder.Write("text.bmp", "a picture? no, a text that is longer than every signature"),
        folder.File("."),
    };
    for (const std::string& name : names) {
        try {
            OpenImage(name);
            FAIL() << name;
        } catch (const EInvalidImage& error) {
            EXPECT_EQ(error.what(), "The image (" + name +
                                        ") could not be loaded. The image file may be corrupt or "
                                        "missing.");
            EXPECT_FALSE(error.Reason.empty());
        }
        EXPECT_THROW(ImageFileSize(name), EInvalidImage);
    }
}

TEST(ImageFileTest, BitmapsAreWrittenBottomUpWithThirtyTwoBits)
{
    const TTestFolder folder;
    const std::string name = folder.File("b\xC3\xA4r.bmp");
    SaveBitmapFile(BitmapOf({{0x010203, 0x040506}, {0x070809, 0x0A0B0C}}), name);
    TBytes expected;
    expected.Byte({'B', 'M'}).Long(54 + 16).Long(0).Long(54);
    expected.Long(40).Long(2).Long(2).Word(1).Word(32).Long(0).Long(16);
    expected.Long(0).Long(0).Long(0).Long(0);
    expected.Long(0x070809).Long(0x0A0B0C).Long(0x010203).Long(0x040506);
    EXPECT_EQ(ReadWholeFile(name), expected.Content());
}

TEST(ImageFileTest, WideAndHighBitmapsSurviveTheFile)
{
    const TTestFolder folder;
    for (const TSize size : {TSize{1, 1}, TSize{70000, 2}, TSize{3, 70000}, TSize{333, 777}}) {
        const TBitmap bitmap = NumberedBitmap(size.Width, size.Height);
        SaveBitmapFile(bitmap, folder.File("a.bmp"));
        EXPECT_TRUE(RowsOf(LoadImageFile(folder.File("a.bmp"))) == RowsOf(bitmap)) << size.Width;
    }
}

TEST(ImageFileTest, ABitmapThatCannotBeHadIsAnError)
{
    EXPECT_THROW(TBitmap(-1, 5), EInvalidImage);
    EXPECT_THROW(TBitmap(1 << 20, 1 << 20), EInvalidImage);
    EXPECT_THROW(TBitmap(INT32_MAX, INT32_MAX), EInvalidImage);
    EXPECT_EQ(TBitmap(0, 7).Size(), (TSize{0, 7}));
}

} // namespace

} // namespace murala
