#include "uThumbnailCache.h"

#include "Pictures.h"
#include "uJpegFile.h"
#include "uTestPictures.h"

#include <chrono>
#include <map>

using namespace murala;

namespace
{

namespace fs = std::filesystem;

void SetAge(const std::string& file, int secondsAgo)
{
    static const auto now = fs::file_time_type::clock::now();
    fs::last_write_time(NativePath(file), now - std::chrono::seconds(secondsAgo));
}

// A list of pictures in a folder, each of one colour, made a minute ago.
class ThumbnailCache : public testing::Test
{
protected:
    ThumbnailCache() { List.SetThumbnailFolder(Folder.File("Thumbnails")); }

    TMuWallpaper& Add(const std::string& name, TPixel color = 0x204060, int width = 9)
    {
        const std::string file = Folder.File(name);
        SaveBitmapFile(EvenBitmap(width, 5, color), file);
        SetAge(file, 60);
        return AddItem(file);
    }
    TMuWallpaper& AddItem(const std::string& file)
    {
        return List.Add(std::make_unique<TMuWallpaper>(file));
    }
    void AddMany(int count)
    {
        for (int i = 0; i < count; ++i)
            Add(std::to_string(i) + ".bmp");
    }
    // The thumbnail's colour; -1 when it is not in memory.
    static std::int64_t Color(const TMuWallpaper& item)
    {
        const auto* thumbnail = static_cast<const TBitmap*>(item.Thumbnail.get());
        return thumbnail ? std::int64_t{thumbnail->Row(20)[30] & 0xFFFFFFU} : -1;
    }
    std::string Names() const
    {
        std::string names;
        for (const std::string& name : List.LoadedThumbnails)
            names += FileNamePart(name).substr(0, FileNamePart(name).find('.')) + ' ';
        return names;
    }
    std::vector<TMuWallpaper*> Items() const
    {
        std::vector<TMuWallpaper*> items;
        for (int i = 0; i < List.Count(); ++i)
            items.push_back(&List.Item(i));
        return items;
    }
    // The names of those that were made, "!" behind one that could not be.
    std::string MakeAll(const std::vector<TMuWallpaper*>& shown)
    {
        std::string made;
        for (int i = 0; i < 2000; ++i) {
            const TThumbnailStep step = Cache.MakeNext(shown);
            if (step.Progress == TThumbnailProgress::Nothing)
                return made;
            if (step.Progress != TThumbnailProgress::Working)
                made += FileNamePart(step.Item->FileName()).substr(0, 1);
            if (step.Progress == TThumbnailProgress::Failed)
                made += "!";
        }
        return made + " and never ends";
    }

    TTempFolder Folder;
    TMuWallpaperList List;
    TThumbnailCache Cache{List};
};

} // namespace

TEST_F(ThumbnailCache, MakesThemOfOneSizeAndKeepsThemAsJpegFiles)
{
    TMuWallpaper& first = Add("a.bmp", 0x204060);
    List.SetThumbnailNumber(first, 17);
    TMuWallpaper& second = AddItem(Folder.File("b.jpg"));
    TBitmap halves = EvenBitmap(4000, 300, 0xFFFFFF);
    for (int y = 0; y < 300; ++y)
        std::fill_n(halves.Row(y), 2000, 0U);
    SaveJpegFile(halves, second.FileName(), 90);
    const TBitmap& made = Cache.GetThumbnail(second);
    EXPECT_EQ(made.Size(), (TSize{64, 48}));
    for (const auto& [x, level] : {std::pair(0, 0U), {30, 0U}, {33, 255U}, {63, 255U}})
        for (const int y : {0, 47})
            EXPECT_NEAR(made.Row(y)[x] & 0xFFU, level, 3) << x << ' ' << y;
    EXPECT_EQ(&Cache.GetThumbnail(second), &made);
    EXPECT_EQ(RowsOf(Cache.GetThumbnail(first))[47][63], 0x204060U);
    EXPECT_EQ(ImageFileSize(Folder.File("Thumbnails/Thumbnail.17.jpg")), (TSize{64, 48}));
    EXPECT_EQ(second.ThumbnailNumber(), 18);
    EXPECT_TRUE(FileExists(Folder.File("Thumbnails/Thumbnail.18.jpg")));
    EXPECT_EQ(Names(), "b a ");
}

TEST_F(ThumbnailCache, ScalesAJpegDownByItsPixels)
{
    for (const auto& [size, divisor] : {std::pair(TSize{16385, 1}, 8),
                                        {{128, 128}, 4},
                                        {{8193, 1}, 4},
                                        {{8192, 1}, 2},
                                        {{4097, 1}, 2},
                                        {{4096, 1}, 1},
                                        {{1 << 20, 4096}, 8},
                                        {{1, 1}, 1}})
        EXPECT_EQ(ThumbnailDivisor(size), divisor) << size.Width;
}

TEST_F(ThumbnailCache, PicturesInACloudAreFetchedOnlyWhenTheyAreRefreshed)
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

TEST_F(ThumbnailCache, AFileCountsOnlyWhenItIsStrictlyNewerThanItsPicture)
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

TEST_F(ThumbnailCache, AnUnusableFileIsMadeAgain)
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

TEST_F(ThumbnailCache, AFolderThatWasDeletedIsMadeAgainAndAFileThatStaysIsNotUsed)
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

TEST_F(ThumbnailCache, AHitFromBehindTheEleventhPlaceGoesToTheFront)
{
    AddMany(13);
    for (TMuWallpaper* item : Items())
        Cache.GetThumbnail(*item);
    const std::string loaded = Names();
    EXPECT_EQ(loaded, "0 1 2 3 4 5 6 7 8 9 10 11 12 ");
    for (const int untouched : {0, 5, 10}) {
        Cache.GetThumbnail(List.Item(untouched));
        EXPECT_EQ(Names(), loaded) << untouched;
    }
    Cache.GetThumbnail(List.Item(11));
    EXPECT_EQ(Names(), "11 0 1 2 3 4 5 6 7 8 9 10 12 ");
    TMuWallpaper* const arriving[] = {&List.Item(12)};
    for (int i = 0; i < 3; ++i) { // seen once, painted again and again
        EXPECT_EQ(MakeAll({std::begin(arriving), std::end(arriving)}), "");
        EXPECT_NE(Cache.Held(List.Item(12)), nullptr);
        EXPECT_EQ(Names(), "12 11 0 1 2 3 4 5 6 7 8 9 10 ");
    }
    MakeAll({});
    List.TrimThumbnails(2);
    EXPECT_EQ(Cache.Held(List.Item(11)), nullptr);
    EXPECT_NE(Cache.Held(List.Item(0)), nullptr);
}

TEST_F(ThumbnailCache, LoadingAFileBeyondTheLimitFreesTen)
{
    AddMany(16);
    for (TMuWallpaper* item : Items())
        Cache.GetThumbnail(*item);
    List.TrimThumbnails(1);
    List.MaxThumbnails = 15;
    Cache.GetThumbnail(List.Item(0)); // 15 are not more than 15
    EXPECT_EQ(Names(), "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 0 ");
    List.Item(1).FreeThumbnail();
    List.ForgetThumbnail(List.Item(1).FileName());
    List.MaxThumbnails = 14;
    Cache.GetThumbnail(List.Item(1));
    EXPECT_EQ(Names(), "12 13 14 15 0 1 ");
    EXPECT_EQ(Color(List.Item(11)), -1);
    EXPECT_NE(Color(List.Item(12)), -1);
}

TEST_F(ThumbnailCache, AFailureFreesAllAndTriesOnceMoreThenReports)
{
    AddMany(15);
    TMuWallpaper& broken = AddItem(Folder.File("gone.bmp"));
    const std::string message = "A thumbnail could not be generated for image (" +
                                broken.FileName() + ").\r\nThe image (" + broken.FileName() +
                                ") could not be loaded. The image file may be corrupt or missing.";
    const auto fails = [&] {
        try {
            Cache.GetThumbnail(broken);
        } catch (const EThumbnail& error) {
            EXPECT_EQ(error.what(), message);
            return true;
        }
        return false;
    };
    EXPECT_TRUE(fails()); // nothing to free: at once
    for (int i = 0; i < 14; ++i)
        Cache.GetThumbnail(List.Item(i));
    EXPECT_TRUE(fails());
    EXPECT_EQ(List.MaxThumbnails, 200); // 13 after the first try; but it was not the room
    EXPECT_TRUE(List.LoadedThumbnails.empty());
    EXPECT_EQ(Color(List.Item(3)), -1);
    SaveBitmapFile(EvenBitmap(3, 3, 7), broken.FileName());
    EXPECT_FALSE(fails());
}

TEST_F(ThumbnailCache, MakesWhatIsShownFirstInShortSteps)
{
    for (const char* name : {"a.bmp", "b.bmp", "c.bmp", "d.bmp"})
        Add(name);
    TMuWallpaper& broken = AddItem(Folder.File("x.bmp"));
    const auto items = Items();
    const auto begun = Cache.MakeNext(std::span(items).subspan(1, 2));
    EXPECT_EQ(begun.Progress, TThumbnailProgress::Working);
    EXPECT_EQ(Color(*items[1]), -1);
    // Scrolled away meanwhile: what is not shown any more is not made.
    EXPECT_EQ(MakeAll({items[3], &broken, items[0]}), "dx!a");
    EXPECT_EQ(Color(*items[1]), -1);
    EXPECT_EQ(MakeAll({items[3], &broken, items[0]}), "");
    SaveBitmapFile(EvenBitmap(3, 3, 0x123456), broken.FileName());
    EXPECT_EQ(MakeAll({&broken}), ""); // it has just been tried
    Cache.Refresh(broken);
    EXPECT_EQ(MakeAll({&broken}), "x");
    EXPECT_EQ(Color(broken), 0x123456);
}

TEST_F(ThumbnailCache, AnItemIsRemovedWhileItIsBeingMade)
{
    Add("a.bmp", 1);
    Add("b.bmp", 2);
    Cache.MakeNext(Items());
    Cache.MakeNext(Items());
    List.Delete(0);
    EXPECT_EQ(MakeAll(Items()), "b");
    EXPECT_EQ(Color(List.Item(0)), 2);
}

TEST_F(ThumbnailCache, AnItemGetsAnotherPictureWhileItIsBeingMade)
{
    TMuWallpaper& item = Add("a.bmp", 1);
    const std::string other = Add("b.bmp", 2).FileName();
    Cache.MakeNext(Items());
    Cache.MakeNext(Items());
    List.Delete(1);
    List.SetFileName(item, other);
    EXPECT_EQ(MakeAll(Items()), "b");
    EXPECT_EQ(Color(item), 2);
}

TEST_F(ThumbnailCache, TheSecondTryIsTheLastWhateverIsDrawnMeanwhile)
{
    AddMany(15);
    TMuWallpaper& broken = AddItem(Folder.File("x.bmp"));
    for (int i = 0; i < 15; ++i)
        Cache.GetThumbnail(List.Item(i));
    TMuWallpaper* const shown[] = {&List.Item(3), &broken};
    EXPECT_EQ(Cache.MakeNext(shown).Progress, TThumbnailProgress::Working);
    EXPECT_EQ(List.MaxThumbnails, 14);
    EXPECT_EQ(Names(), "3 "); // what is shown would be loaded again at once
    Cache.GetThumbnail(List.Item(7));
    const TThumbnailStep second = Cache.MakeNext(shown);
    EXPECT_EQ(second.Progress, TThumbnailProgress::Failed);
    EXPECT_EQ(second.Item, &broken);
    EXPECT_EQ(List.MaxThumbnails, 200);
    EXPECT_EQ(MakeAll({shown[0], shown[1]}), "");
}

TEST_F(ThumbnailCache, WhatIsShownStaysHoweverItIsScrolledAndPainted)
{
    AddMany(60);
    AddItem(Folder.File("missing.jpg"));
    auto items = Items();
    std::rotate(items.begin() + 30, items.end() - 1, items.end());
    List.MaxThumbnails = 12;
    const auto paint = [](std::span<TMuWallpaper* const> shown) {
        return std::ranges::count_if(
            shown, [](auto* each) { return TThumbnailCache::Held(*each) != nullptr; });
    };
    for (const int first : {0, 5, 20, 38, 13, 0}) {
        const auto shown = std::span(items).subspan(static_cast<std::size_t>(first), 23);
        std::map<const TMuWallpaper*, int> made;
        for (int step = 0; step < 600; ++step) {
            paint(shown);
            const TThumbnailStep done = Cache.MakeNext(shown);
            made[done.Item] += done.Progress == TThumbnailProgress::Made ? 1 : 0;
        }
        for (const auto& [item, times] : made)
            EXPECT_LE(times, 1) << first << ' ' << item->FileName();
        EXPECT_EQ(Cache.MakeNext(shown).Progress, TThumbnailProgress::Nothing) << first;
        EXPECT_EQ(paint(shown), first > 7 && first <= 30 ? 22 : 23) << first;
        EXPECT_LE(List.LoadedThumbnails.size(), 23U + 12) << first;
    }
    EXPECT_EQ(List.MaxThumbnails, 12);
}

TEST_F(ThumbnailCache, WhatFailedIsTriedAgainWhenItIsShownAnewAndNotTooOften)
{
    TMuWallpaper& late = AddItem(Folder.File("late.bmp"));
    TMuWallpaper& other = Add("a.bmp");
    EXPECT_EQ(MakeAll({&late}), "l!");
    EXPECT_EQ(MakeAll({&other}), "a");
    EXPECT_EQ(MakeAll({&late, &other}), "") << "too early";
    Cache.RetryPause = {};
    EXPECT_EQ(MakeAll({&late, &other}), "") << "it is at rest";
    Cache.ShowAnew();
    EXPECT_EQ(MakeAll({&late, &other}), "l!");
    SaveBitmapFile(EvenBitmap(3, 3, 7), late.FileName());
    EXPECT_EQ(MakeAll({&other}), "");
    EXPECT_EQ(MakeAll({&late, &other}), "l");
}

TEST_F(ThumbnailCache, TwoItemsWithOneFileAreTwoItems)
{
    TMuWallpaper& first = Add("a.bmp");
    TMuWallpaper& second = AddItem(first.FileName());
    Cache.GetThumbnail(first);
    Cache.GetThumbnail(second);
    List.TrimThumbnails(1);
    EXPECT_EQ(Names(), "a ");
    EXPECT_EQ((Color(first) == -1) + (Color(second) == -1), 1);
    Cache.GetThumbnail(first);
    Cache.GetThumbnail(second);
    Cache.Refresh(second);
    Cache.Refresh(second); // is not in memory
    EXPECT_EQ(Names(), "a ");
    EXPECT_NE(Color(first), -1);
    List.TrimThumbnails(10);
    EXPECT_EQ(Color(first), -1);
}

TEST_F(ThumbnailCache, CountsWhatIsKeptAndDeletesItButNoNumbers)
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

TEST_F(ThumbnailCache, RefreshingMakesAllAgainAndKeepsWhatIsDoneWhenStopped)
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

TEST_F(ThumbnailCache, WithoutAFolderTheyAreShownAndThatIsSaidOnce)
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
