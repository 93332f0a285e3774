#include "ThumbnailFixture.h"

using namespace murala;

using ThumbnailFiles = TThumbnailFixture;

TEST_F(ThumbnailFiles, PicturesInACloudAreFetchedOnlyWhenTheyAreRefreshed)
{
    TMuWallpaper& kept = Add("a.bmp", 1);
    Cache.GetThumbnail(kept);
    SetAge(kept.FileName(), 60);
    List.FreeAllThumbnails();
    TMuWallpaper& cloud = Add("b.bmp", 2);
    Cache.IsElsewhere = [](std::string_view) { return true; };
    EXPECT_EQ(MakeAll(Items()), "ab!");
    Cache.Refresh(cloud);
    EXPECT_EQ(MakeAll(Items()), "b");
}

TEST_F(ThumbnailFiles, AFileCountsOnlyWhenItIsStrictlyNewerThanItsPicture)
{
    TMuWallpaper& item = Add("a.bmp", 0x0000FF);
    Cache.GetThumbnail(item);
    const std::string kept = item.ThumbnailFileName();
    struct {
        int KeptSecondsAgo;
        bool HasImage, IsUsed;
    } const cases[] = {{59, true, true}, {60, true, false}, {61, true, false}, {600, false, true}};
    for (const auto& each : cases) {
        SaveJpegFile(EvenBitmap(64, 48, 0x00FF00), kept, 90);
        SetAge(kept, each.KeptSecondsAgo);
        if (!each.HasImage)
            DeleteFileIfPresent(item.FileName());
        List.FreeAllThumbnails();
        const bool isGreen = (Cache.GetThumbnail(item).Row(5)[5] & 0xFF00U) > 0xF000U;
        EXPECT_EQ(isGreen, each.IsUsed) << each.KeptSecondsAgo;
    }
}

TEST_F(ThumbnailFiles, AnUnusableFileIsMadeAgain)
{
    TMuWallpaper& item = Add("a.bmp", 0x0000FF);
    const std::string kept = item.ThumbnailFileName();
    const std::string broken[] = {"", "no picture", "\xFF\xD8\xFF\xE0 half a header"};
    for (const std::string& content : broken) {
        ReplaceWholeFile(kept, content, TFlush::ToSystemCache);
        List.FreeAllThumbnails();
        EXPECT_EQ(Cache.GetThumbnail(item).Row(9)[9] & 0xFFFFFFU, 0xFFU);
        EXPECT_EQ(ImageFileSize(kept), StoredThumbnailSize);
    }
    SaveJpegFile(EvenBitmap(30, 30, 0x00FF00), kept, 90); // of another size
    List.FreeAllThumbnails();
    EXPECT_EQ(Cache.GetThumbnail(item).Size(), StoredThumbnailSize);
    TBitmap noise = EvenBitmap(64, 48, 0);
    for (int y = 0; y < 48; ++y)
        for (int x = 0; x < 64; ++x)
            noise.Row(y)[x] = static_cast<TPixel>(x * y * 77777);
    SaveJpegFile(noise, kept, 90);
    const std::string whole = ReadWholeFile(kept);
    for (const std::size_t size : {whole.size() / 2, whole.size() - 40}) { // the rest is grey
        ReplaceWholeFile(kept, whole.substr(0, size), TFlush::ToSystemCache);
        List.FreeAllThumbnails();
        EXPECT_EQ(Cache.GetThumbnail(item).Row(2)[40] & 0xFFFFFFU, 0xFFU);
    }
}

TEST_F(ThumbnailFiles, AFolderThatWasDeletedIsMadeAgainAndAFileThatStaysIsNotUsed)
{
    TMuWallpaper& item = Add("a.bmp", 0x0000FF);
    std::filesystem::remove_all(NativePath(List.ThumbnailFolder));
    Cache.GetThumbnail(item);
    EXPECT_EQ(Cache.TakeNotice(), "");
    EXPECT_TRUE(FileExists(item.ThumbnailFileName()));
    EXPECT_TRUE(Cache.Refresh(item));
    std::filesystem::create_directories(NativePath(item.ThumbnailFileName() + "/x"));
    EXPECT_FALSE(Cache.Refresh(item));
    std::filesystem::remove_all(NativePath(item.ThumbnailFileName()));
    SaveJpegFile(EvenBitmap(64, 48, 0x00FF00), item.ThumbnailFileName(), 90);
    EXPECT_EQ(Cache.GetThumbnail(item).Row(2)[40] & 0xFFFFFFU, 0xFFU);
}

TEST_F(ThumbnailFiles, CountsWhatIsKeptAndDeletesItButNoNumbers)
{
    AddMany(3);
    Cache.GetThumbnail(List.Item(0));
    Cache.GetThumbnail(List.Item(2));
    const std::string stale = Folder.Write("Thumbnails/Thumbnail.3.jpg", "of a removed item");
    const TThumbnailStatistics statistics = Cache.Statistics();
    EXPECT_FALSE(FileExists(stale)); // the third number was given out by counting
    EXPECT_EQ(List.Item(1).ThumbnailNumber(), 3);
    EXPECT_EQ(statistics.Count, 2);
    EXPECT_EQ(statistics.Bytes,
              static_cast<std::int64_t>(ReadWholeFile(List.Item(0).ThumbnailFileName()).size() +
                                        ReadWholeFile(List.Item(2).ThumbnailFileName()).size()));
    EXPECT_GT(statistics.DiskBytes, statistics.Bytes);
    const TThumbnailStatistics texts{1587, 12, 1000000};
    EXPECT_EQ(texts.SizeText() + '|' + texts.ShareText() + '|' + texts.CountText(),
              "  1.55 KB|  0.16%|12");
    EXPECT_EQ(TThumbnailStatistics{}.ShareText(), "  0.00%");
}

TEST_F(ThumbnailFiles, RefreshingMakesAllAgainAndKeepsWhatIsDoneWhenStopped)
{
    for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
        Cache.GetThumbnail(Add(name));
    const auto number = List.Item(1).ThumbnailNumber();
    for (TMuWallpaper* item : Items()) {
        SaveJpegFile(EvenBitmap(64, 48, 0), item->ThumbnailFileName(),
                     90); // newer than the picture
        SetAge(item->ThumbnailFileName(), 5);
    }
    DeleteFileIfPresent(List.Item(1).FileName());
    TThumbnailRefresh refresh(Cache, List);
    EXPECT_TRUE(List.LoadedThumbnails.empty());
    while (refresh.Position() < 2)
        ASSERT_TRUE(refresh.Step());
    ASSERT_EQ(refresh.Errors().size(), 1U);
    EXPECT_NE(refresh.Errors()[0].find("b.bmp"), std::string::npos);
    EXPECT_EQ(LoadImageFile(List.Item(2).ThumbnailFileName()).Row(0)[0] & 0xFFFFFFU, 0U);
    while (refresh.Step()) {
    }
    EXPECT_EQ(refresh.Position(), 3);
    EXPECT_NE(LoadImageFile(List.Item(2).ThumbnailFileName()).Row(0)[0] & 0xFFFFFFU, 0U);
    EXPECT_FALSE(FileExists(List.Item(1).ThumbnailFileName()));
    EXPECT_EQ(List.Item(1).ThumbnailNumber(), number);
    EXPECT_FALSE(refresh.Step());
}

TEST_F(ThumbnailFiles, WithoutAFolderTheyAreShownAndThatIsSaidOnce)
{
    for (const char* name : {"a.bmp", "b.bmp"})
        Add(name, 0x0A0B0C);
    Folder.Write("file", "in the folder's place");
    List.ThumbnailFolder = Folder.File("file/");
    EXPECT_EQ(Cache.TakeNotice(), "");
    EXPECT_EQ(Cache.GetThumbnail(List.Item(0)).Row(0)[0] & 0xFFFFFFU, 0x0A0B0CU);
    const std::string notice = Cache.TakeNotice();
    EXPECT_EQ(notice.find("Thumbnails are shown, but they cannot be kept.\r\n"), 0U);
    EXPECT_NE(notice.find(List.ThumbnailFolder), std::string::npos);
    EXPECT_EQ(MakeAll(Items()), "b");
    EXPECT_EQ(Cache.TakeNotice(), "");
    EXPECT_EQ(Cache.Statistics().Count, 0);
    List.ThumbnailFolder.clear(); // none was ever set
    List.FreeAllThumbnails();
    EXPECT_EQ(MakeAll(Items()), "ab");
}
