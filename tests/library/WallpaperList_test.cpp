#include "uWallpaper.h"

#include "uSettings.h"
#include "uTempFolder.h"

#include <climits>

using namespace murala;

namespace
{

TMuWallpaper& AddItem(TMuWallpaperList& list, const std::string& fileName,
                      const std::string& title = "", int thumbnailNumber = 0)
{
    auto item = std::make_unique<TMuWallpaper>(fileName);
    item->Title = title;
    item->Category = FolderPart(fileName);
    TMuWallpaper& added = list.Add(std::move(item));
    list.SetThumbnailNumber(added, thumbnailNumber);
    return added;
}

std::string Lines(const TMuWallpaperList& list)
{
    std::string lines;
    for (int i = 0; i < list.Count(); ++i)
        lines += list.Item(i).SaveToLine() + "\r\n";
    return lines;
}

} // namespace

TEST(WallpaperList, FindsItemsByFileName)
{
    TMuWallpaperList list;
    const TIniFile file = TIniFile::FromText(
        "[Main]\nWallpaperCurrent=/b\nWallpaperCurrent2=/c\nWallpaperCurrent3=/x\n");
    EXPECT_EQ(LoadCurrentWallpaper(file, list, 0), -1);
    for (const char* name : {"/a", "/b", "/A", "/c", "/b"})
        AddItem(list, name);
    for (const auto& [desktop, current] : {std::pair(0, 1), {1, 1}, {2, 3}, {3, 0}, {4, 0}})
        EXPECT_EQ(LoadCurrentWallpaper(file, list, desktop), current) << desktop;
    EXPECT_EQ(list.IndexOfFileName("/A"), 2);
    EXPECT_EQ(list.IndexOfFileName("/b"), 1);
    EXPECT_EQ(list.Delete(4)->IndexInList(), -1);
    EXPECT_EQ(list.IndexOfFileName("/b"), 1);
    EXPECT_EQ(list.DeleteMany({0, 1}).back()->FileName(), "/b");
    EXPECT_FALSE(list.ContainsFileName("/b"));
    EXPECT_EQ(list.IndexOfFileName("/c"), 1);
    EXPECT_THROW(list.Delete(2), std::out_of_range);
}

TEST(WallpaperList, SortsStablyByEveryColumn)
{
    const struct {
        TListColumn Column;
        bool Ascending;
        const char* Titles;
    } cases[] = {
        {lcTitle, true, "aabbc"},     {lcTitle, false, "cbbaa"},        {lcFileName, true, "abbca"},
        {lcFolder, true, "bcaba"},    {lcFileName, false, "acbba"},     {lcCategory, true, "bcaab"},
        {lcCategory, false, "baacb"}, {ListColumnCount, true, "bacba"},
    };
    for (const auto& [column, ascending, titles] : cases) {
        TMuWallpaperList list;
        for (const auto& [fileName, title] :
             {std::pair("/k/2", "b"), {"/l/1", "a"}, {"/k/3", "c"}, {"/l/2", "b"}, {"/l/4", "a"}})
            AddItem(list, fileName, title);
        list.Sort(column, ascending, [](const auto& text) { return text; });
        for (int i = 0; i < list.Count(); ++i)
            EXPECT_EQ(list.Item(i).Title[0], titles[i]) << column << ascending << i;
    }
}

TEST(WallpaperList, GivesOutThumbnailNumbers)
{
    const TTempFolder folder;
    TMuWallpaperList list;
    EXPECT_THROW(list.SetThumbnailFolder(folder.File("a/b")), EFileError);
    list.SetThumbnailFolder(folder.File("Thumbnails"));
    list.SetThumbnailFolder(folder.File("Thumbnails"));
    EXPECT_EQ(list.NextThumbnailNumber(), 1);
    for (int number : {3, 9, 0, -5})
        AddItem(list, "/" + std::to_string(number), "", number);
    const std::string stale = JoinPath(folder.File("Thumbnails"), "Thumbnail.10.jpg");
    ReplaceWholeFile(stale, "of an item before", TFlush::ToSystemCache);
    EXPECT_EQ(list.Item(2).ThumbnailFileName(), stale);
    EXPECT_FALSE(FileExists(stale));
    ReplaceWholeFile(stale, "its own", TFlush::ToSystemCache);
    EXPECT_EQ(list.Item(2).ThumbnailFileName(), stale);
    EXPECT_TRUE(FileExists(stale));
    list.Item(2).DeleteThumbnailFile();
    EXPECT_FALSE(FileExists(stale));
    EXPECT_EQ(list.NextThumbnailNumber(), 11);
    list.DeleteMany({1, 2, 0});
    EXPECT_EQ(list.NextThumbnailNumber(), 1);
    TMuWallpaper& last = AddItem(list, "/last", "", INT_MAX);
    EXPECT_EQ(list.NextThumbnailNumber(), 1);
    list.SetThumbnailNumber(last, 5);
    EXPECT_EQ(list.NextThumbnailNumber(), 6);
}

TEST(WallpaperList, TrimsTheOldestThumbnails)
{
    TMuWallpaperList list;
    for (const char* name : {"/a", "/b", "/c", "/d"}) {
        AddItem(list, name).Thumbnail = std::make_unique<TPicture>();
        list.LoadedThumbnails.emplace_back(name);
    }
    list.TrimThumbnails(-1);
    EXPECT_TRUE(list.Item(0).Thumbnail);
    list.TrimThumbnails(1);
    EXPECT_FALSE(list.Item(0).Thumbnail);
    EXPECT_TRUE(list.Item(1).Thumbnail);
    list.ForgetThumbnail("/c");
    list.Delete(1); // "/b" stays among the loaded ones
    list.Busy = true;
    list.TrimThumbnails(5);
    EXPECT_TRUE(list.Item(2).Thumbnail);
    list.Busy = false;
    list.TrimThumbnails(5);
    EXPECT_TRUE(list.Item(1).Thumbnail);
    EXPECT_FALSE(list.Item(2).Thumbnail || list.Busy);
    EXPECT_TRUE(list.LoadedThumbnails.empty());
}

TEST(WallpaperList, SavesAndLoadsAnyText)
{
    const TTempFolder folder;
    const std::string path = folder.File("list");
    TMuWallpaperList list, loaded;
    for (const char* text : {"/p/a,b.jpg", "/p/\"a\".jpg", "/p/line\nbreak\r.jpg", "\",\"\r\n\"",
                             "\xC3\xBC\xE2\x82\xAC", " ", "\""})
        AddItem(list, text, text);
    AddItem(loaded, "/gone");
    loaded.LoadFromFile(path);
    EXPECT_EQ(loaded.Count(), 0);
    list.SaveToFile(path);
    loaded.LoadFromFile(path);
    EXPECT_EQ(Lines(loaded), Lines(list));
    EXPECT_EQ(ReadWholeFile(path), Lines(list));
}

TEST(WallpaperList, AcceptsEveryLineEndAndKeepsTheItemsBeforeABadLine)
{
    const TTempFolder folder;
    TMuWallpaperList list;
    const std::string good = AddItem(list, "/two\nlines").SaveToLine(), line = good + "\r\n";
    const std::string bad = "\"/b\",\"b\",\"Tiled\",\"x\"\r\n";
    const auto path =
        folder.Write("list", "\xEF\xBB\xBF" + good + '\n' + good + '\r' + line + bad + line);
    try {
        list.LoadFromFile(path);
        ADD_FAILURE();
    } catch (const EListLineError& error) {
        EXPECT_EQ(std::string(error.what()).find("Line 7 of " + path + ": field 4"), 0U);
    }
    EXPECT_EQ(Lines(list), line + line + line);
}

TEST(WallpaperList, KeepsTheBytesOfTextFromBeforeAndTheMarkOfAnEditor)
{
    const TTempFolder folder;
    TMuWallpaperList lines;
    const std::string line = AddItem(lines, "/B\xE4r\xC3\xA4\x80.jpg").SaveToLine() + "\r\n";
    const std::string mark = "\xEF\xBB\xBF", ascii = AddItem(lines, "/a").SaveToLine() + "\r\n";
    std::string wide = "\xFF\xFE";
    for (const char c : ascii)
        wide.append({c, '\0'});
    const struct {
        std::string Content, Saved;
    } cases[] = {{line, line}, {mark + line, mark + line}, {wide, mark + ascii}};
    TMuWallpaperList list;
    for (const auto& c : cases) {
        const std::string path = folder.Write("list", c.Content);
        list.LoadFromFile(path);
        list.SaveToFile(path);
        EXPECT_EQ(ReadWholeFile(path), c.Saved);
    }
    list.LoadFromFile(folder.File("missing"));
    list.SaveToFile(folder.File("fresh"));
    EXPECT_EQ(ReadWholeFile(folder.File("fresh")), "");
    // A folder named by such bytes is made, or else its failing is told.
    try {
        list.SetThumbnailFolder(folder.File("B\xE4r"));
        EXPECT_EQ(folder.Count(), 3);
    } catch (const EFileError&) {
    }
}
