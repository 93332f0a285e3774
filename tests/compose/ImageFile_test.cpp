#include "uPictureFormats.h"

#include "Pictures.h"

using namespace murala;

TEST(ImageFile, WhatIsNoPictureIsNamedInTheMessage)
{
    const TTempFolder folder;
    for (const std::string& name :
         {folder.File("missing.jpg"), folder.File("."), folder.Write("empty.jpg", ""),
          folder.Write("short.bmp", "B"), folder.Write("text.bmp", "a text of several words")}) {
        EXPECT_THROW(ImageFileSize(name), EInvalidImage);
        try {
            OpenImage(name);
            FAIL() << name;
        } catch (const EInvalidImage& error) {
            EXPECT_EQ(error.what(), "The image (" + name +
                                        ") could not be loaded. The image file may be corrupt or "
                                        "missing.");
            EXPECT_TRUE(error.Reason == "not a JPEG or BMP picture" ||
                        error.Reason == "there is no such file")
                << error.Reason;
        }
    }
}

TEST(ImageFile, APicturesNameEndsAsItsFormatHasIt)
{
    for (const char* name : {"C:\\P\\a.jpg", "/p.bmp/.JPEG", "/\\:.Bmp"})
        EXPECT_TRUE(HasPictureExtension(name)) << name;
    for (const char* name : {"C:/P/a.b.gz", "\\\\s\\a.bmp\\Sea", "/odd/jpg", "Sea.jpg.", ""})
        EXPECT_FALSE(HasPictureExtension(name)) << name;
    using TNames = std::vector<std::string>;
    EXPECT_EQ(UsualPictureExtensions(), (TNames{".bmp", ".jpg"}));
    EXPECT_EQ(PictureExtensionsLike(".jpg"), (TNames{".jpg", ".jpeg"}));
}

TEST(ImageFile, BitmapsAreWrittenBottomUpWithThirtyTwoBits)
{
    const TTempFolder folder;
    const std::string name = folder.File("b\xC3\xA4r.bmp");
    // Whatever text drawing has left in the fourth byte.
    SaveBitmapFile(BitmapOf({{0xFF010203, 0x040506}, {0x80070809, 0x010A0B0C}}), name);
    EXPECT_EQ(ReadWholeFile(name), "BM" + Longs({70, 0, 54, 40, 2, 2, 1 | 32 << 16, 0, 16, 0, 0, 0,
                                                 0, 0x070809, 0x0A0B0C, 0x010203, 0x040506}));
    for (const TSize size : {TSize{1, 1}, TSize{70000, 2}, TSize{3, 70000}, TSize{333, 777}}) {
        const TBitmap bitmap = NumberedBitmap(size.Width, size.Height);
        SaveBitmapFile(bitmap, name);
        EXPECT_TRUE(RowsOf(LoadImageFile(name)) == RowsOf(bitmap)) << size.Width;
    }
}

TEST(ImageFile, ABitmapThatCannotBeHadIsAnError)
{
    for (const TSize size : {TSize{-1, 5}, TSize{1 << 20, 1 << 20}, TSize{INT32_MAX, INT32_MAX}})
        EXPECT_THROW(TBitmap(size.Width, size.Height), EInvalidImage);
    EXPECT_EQ(TBitmap(0, 7).Size(), (TSize{0, 7}));
}
