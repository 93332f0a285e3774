#include "uWallpaper.h"

#include "uSafeFile.h"
#include "uTempFolder.h"

#include <limits>

using namespace murala;

namespace
{

TMuWallpaper& AddItem(TMuWallpaperList& list, const std::string& fileName,
                      const std::string& title = "", const std::string& category = "c")
{
    auto item = std::make_unique<TMuWallpaper>();
    item->FileName = fileName;
    item->Title = title;
    item->Category = category;
    return list.Add(std::move(item));
}

// The titles in list order, without dividers.
std::string Titles(const TMuWallpaperList& list)
{
    std::string titles;
    for (int i = 0; i < list.Count(); ++i)
        titles += list.Item(i).Title;
    return titles;
}

int CompareBytes(const std::string& a, const std::string& b)
{
    return a.compare(b);
}

} // namespace

TEST(WallpaperList, FindsItemsByFileName)
{
    TMuWallpaperList list;
    for (const char* name : {"/a", "/b", "/A", "/c", "/b"})
        AddItem(list, name);
    const auto& second = list.Item(4);
    EXPECT_EQ(list.IndexOfFileName("/A"), 2);
    EXPECT_EQ(list.IndexOfFileName("/b"), 1);
    EXPECT_EQ(list.IndexOfFileName("/B"), -1);
    const auto deleted = list.Delete(1);
    EXPECT_EQ(deleted->Owner, nullptr);
    EXPECT_EQ(deleted->IndexInList(), -1);
    EXPECT_EQ(list.IndexOfFileName("/b"), 3);
    EXPECT_EQ(second.IndexInList(), 3);
    EXPECT_EQ(list.DeleteMany({0, 3}).back()->FileName, "/b");
    EXPECT_FALSE(list.ContainsFileName("/b"));
    EXPECT_EQ(list.IndexOfFileName("/c"), 1);
    EXPECT_THROW(list.Delete(2), std::out_of_range);
    EXPECT_THROW(list.Item(-1), std::out_of_range);
    list.Clear();
    EXPECT_FALSE(list.ContainsFileName("/A"));
}

TEST(WallpaperList, SortsStablyByEveryColumn)
{
    const struct {
        int Column;
        bool Ascending;
        const char* Titles;
    } cases[] = {
        {0, true, "aabbc"}, {0, false, "cbbaa"}, {1, true, "abbca"},  {1, false, "acbba"},
        {2, true, "bcaba"}, {3, true, "bcaab"},  {3, false, "baacb"}, {4, true, "bacba"},
    };
    for (const auto& c : cases) {
        TMuWallpaperList list;
        AddItem(list, "/x/2", "b", "k");
        AddItem(list, "/y/1", "a", "l");
        AddItem(list, "/x/3", "c", "k");
        AddItem(list, "/y/2", "b", "l");
        AddItem(list, "/y/4", "a", "l");
        list.Sort(c.Column, c.Ascending, CompareBytes);
        EXPECT_EQ(Titles(list), c.Titles) << c.Column << c.Ascending;
        EXPECT_EQ(list.Item(list.IndexOfFileName("/x/3")).Title, "c");
    }
}

TEST(WallpaperList, GivesOutThumbnailNumbers)
{
    const TTempFolder folder;
    TMuWallpaperList list;
    list.SetThumbnailFolder(folder.File("Thumbnails"));
    EXPECT_EQ(list.NextThumbnailNumber(), 1);
    for (int number : {3, 9, 0, -5}) {
        auto item = std::make_unique<TMuWallpaper>();
        item->FileName = "/" + std::to_string(number);
        item->ThumbnailNumber = number;
        list.Add(std::move(item));
    }
    EXPECT_EQ(list.NextThumbnailNumber(), 10);
    const std::string stale = JoinPath(folder.File("Thumbnails"), "Thumbnail.10.jpg");
    ReplaceWholeFile(stale, "of an item before", TFlush::ToSystemCache);
    EXPECT_EQ(list.Item(2).ThumbnailFileName(), stale);
    EXPECT_FALSE(FileExists(stale));
    ReplaceWholeFile(stale, "its own", TFlush::ToSystemCache);
    EXPECT_EQ(list.Item(2).ThumbnailFileName(), stale);
    EXPECT_TRUE(FileExists(stale));
    EXPECT_EQ(list.NextThumbnailNumber(), 11);
    list.Item(2).DeleteThumbnailFile();
    list.Item(2).DeleteThumbnailFile();
    EXPECT_FALSE(FileExists(stale));
    list.Delete(0);
    EXPECT_EQ(list.NextThumbnailNumber(), 11);
    list.DeleteMany({0, 1});
    EXPECT_EQ(list.NextThumbnailNumber(), 1);
    auto last = std::make_unique<TMuWallpaper>();
    last->ThumbnailNumber = std::numeric_limits<std::int32_t>::max();
    list.Add(std::move(last));
    EXPECT_EQ(list.NextThumbnailNumber(), 1);
}

TEST(WallpaperList, MakesTheThumbnailFolderOneLevelDeep)
{
    const TTempFolder folder;
    TMuWallpaperList list;
    list.SetThumbnailFolder(folder.File("Thumbnails"));
    list.SetThumbnailFolder(folder.File("Thumbnails"));
    EXPECT_EQ(list.ThumbnailFolder, WithTrailingDivider(folder.File("Thumbnails")));
    EXPECT_TRUE(std::filesystem::is_directory(NativePath(list.ThumbnailFolder)));
    EXPECT_THROW(list.SetThumbnailFolder(folder.File("a/b")), EFileError);
}

TEST(WallpaperList, TrimsTheOldestThumbnails)
{
    TMuWallpaperList list;
    for (const char* name : {"/a", "/b", "/c", "/d"}) {
        AddItem(list, name).Thumbnail = std::make_unique<TPicture>();
        list.LoadedThumbnails.emplace_back(name);
    }
    const auto loaded = [&] {
        std::string mask;
        for (int i = 0; i < list.Count(); ++i)
            mask += list.Item(i).Thumbnail ? '1' : '0';
        return mask;
    };
    list.Busy = true;
    list.TrimThumbnails(2);
    EXPECT_EQ(loaded(), "1111");
    list.Busy = false;
    list.TrimThumbnails(-1);
    list.TrimThumbnails(1);
    EXPECT_EQ(loaded(), "0111");
    list.ForgetThumbnail("/c");
    list.Delete(1); // "/b" stays among the loaded ones
    EXPECT_EQ(list.LoadedThumbnails, (std::vector<std::string>{"/b", "/d"}));
    list.TrimThumbnails(5);
    EXPECT_EQ(loaded(), "010");
    EXPECT_TRUE(list.LoadedThumbnails.empty());
    EXPECT_FALSE(list.Busy);
    list.FreeAllThumbnails();
    EXPECT_EQ(loaded(), "000");
}

TEST(WallpaperList, SavesAndLoadsAnyText)
{
    const TTempFolder folder;
    const std::string path = folder.File(ListFileName);
    TMuWallpaperList list;
    list.LoadFromFile(path);
    EXPECT_EQ(list.Count(), 0);
    const char* const texts[] = {"/p/a,b.jpg",  "/p/\"a\".jpg",         "/p/line\nbreak\r.jpg",
                                 "\",\"\r\n\"", "\xC3\xBC\xE2\x82\xAC", " ",
                                 "\""};
    for (const char* text : texts)
        AddItem(list, text, text, text);
    list.SaveToFile(path);
    TMuWallpaperList loaded;
    AddItem(loaded, "/gone");
    loaded.LoadedThumbnails.emplace_back("/gone");
    loaded.LoadFromFile(path);
    ASSERT_EQ(loaded.Count(), list.Count());
    for (int i = 0; i < list.Count(); ++i)
        EXPECT_EQ(loaded.Item(i).SaveToLine(), list.Item(i).SaveToLine());
    EXPECT_EQ(loaded.IndexOfFileName(texts[2]), 2);
    EXPECT_TRUE(loaded.LoadedThumbnails.empty());
    EXPECT_EQ(ReadWholeFile(path).substr(0, 14), "\"/p/a,b.jpg\",\"");
}

TEST(WallpaperList, AcceptsEveryLineEndAndAByteOrderMark)
{
    const TTempFolder folder;
    const std::string path = folder.File(ListFileName);
    TMuWallpaper item;
    item.FileName = "/p/a.jpg";
    const std::string line = item.SaveToLine();
    ReplaceWholeFile(path, "\xEF\xBB\xBF" + line + "\n" + line + "\r" + line + "\r\n" + line,
                     TFlush::ToSystemCache);
    TMuWallpaperList list;
    list.LoadFromFile(path);
    ASSERT_EQ(list.Count(), 4);
    EXPECT_EQ(list.Item(0).SaveToLine(), list.Item(3).SaveToLine());
}

TEST(WallpaperList, KeepsTheItemsBeforeABadLine)
{
    const TTempFolder folder;
    const std::string path = folder.File(ListFileName);
    TMuWallpaper item;
    item.FileName = "/p/two\nlines.jpg";
    const std::string good = item.SaveToLine() + "\r\n";
    ReplaceWholeFile(path, good + good + "\"/p/b.jpg\",\"b\",\"Tiled\",\"x\"\r\n" + good,
                     TFlush::ToSystemCache);
    TMuWallpaperList list;
    try {
        list.LoadFromFile(path);
        ADD_FAILURE();
    } catch (const EListLineError& error) {
        EXPECT_EQ(error.Line, 5);
        const std::string message = error.what();
        for (const std::string& part :
             {std::string("Line 5"), path, std::string("TransparentIcons")})
            EXPECT_NE(message.find(part), std::string::npos) << message;
    }
    EXPECT_EQ(list.Count(), 2);
    EXPECT_TRUE(list.ContainsFileName("/p/two\nlines.jpg"));
}
