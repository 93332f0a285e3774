#include "uSettings.h"

#include "uConvertList.h"

#include <gtest/gtest.h>

using namespace murala;

namespace
{

std::string Saved(const TMuSettings& settings, const TListState& list, TSaveFlags parts,
                  std::string_view before = "")
{
    TIniFile file = TIniFile::FromText(before);
    SaveSettings(file, settings, list, parts);
    return file.ToText();
}

TSaveFlags Only(std::initializer_list<TSaveFlag> flags)
{
    TSaveFlags parts;
    for (TSaveFlag flag : flags)
        parts.set(flag);
    return parts;
}

} // namespace

TEST(Settings, AreWrittenInTheirOrder)
{
    TMuSettings settings;
    settings.WallpaperPath = R"(C:\Pictures\)";
    settings.LastChangeDate = *EncodeDateTime({2026, 3, 7, 18, 5});
    settings.Titles.ConvertList = {{"_", " "}, {"()", ""}};
    settings.ThumbnailFolder = "never written";
    EXPECT_EQ(Saved(settings, {7, R"(C:\Pictures\Sea.jpg)", 1}, AllSaveFlags),
              "[Main]\r\nWallpaperCount=7\r\nWallpaperCurrent=C:\\Pictures\\Sea.jpg\r\n"
              "WallpaperPath=C:\\Pictures\\\r\nPreviewSize=1\r\nThumbnailSize=1\r\nViewMode=0\r\n"
              "WindowState=1\r\nApplyOnStartup=0\r\nNextOnStartup=0\r\nWidth=650\r\nHeight=492\r\n"
              "Left=249\r\nTop=123\r\nUseSchedule=0\r\nScheduleFrequency=1\r\nScheduleUnits=1\r\n"
              "ScheduleAt=12:00:00\r\nScheduleOn=0\r\nLastChangeDate=2026-03-07 18:05:00\r\n"
              "CapitaliseFirstLetter=1\r\nSpaceOutWords=1\r\nStickyEdges=1\r\n"
              "UseWallpaperCategories=1\r\nMaxTitleLength=40\r\nRefreshIcons=1\r\n"
              "DefaultTransparentIcons=0\r\nUseCalendar=0\r\nCalendarDate=1899-12-30 00:00:00\r\n"
              "UseIconBox=0\r\nIconBoxGamma=128\r\nIconBoxBorder=0\r\n"
              "IconBoxBorderColor=16777215\r\nIconBoxOnlyIcons=0\r\n"
              "[ConvertList]\r\n_=\" \"\r\n()=(blank)\r\n");
}

TEST(Settings, EveryKeyIsReadBackIntoItsOwnPlace)
{
    // Every key gets a value of its own; writing what was read must give the same file.
    std::string text =
        "[Main]\r\nWallpaperCount=1\r\nWallpaperCurrent=/w\r\nWallpaperPath=/x/ y\r\n";
    int number = 100;
    for (const char* key : {"PreviewSize", "ThumbnailSize", "ViewMode"})
        text += std::string(key) + "=" + std::to_string(++number) + "\r\n";
    text += "WindowState=0\r\nApplyOnStartup=1\r\nNextOnStartup=1\r\n";
    for (const char* key : {"Width", "Height", "Left", "Top"})
        text += std::string(key) + "=-" + std::to_string(++number) + "\r\n";
    text += "UseSchedule=1\r\nScheduleFrequency=201\r\nScheduleUnits=202\r\nScheduleAt=07:08:09\r\n"
            "ScheduleOn=203\r\nLastChangeDate=2025-01-02 03:04:05\r\nCapitaliseFirstLetter=0\r\n"
            "SpaceOutWords=0\r\nStickyEdges=0\r\nUseWallpaperCategories=0\r\nMaxTitleLength=204\r\n"
            "RefreshIcons=0\r\nDefaultTransparentIcons=1\r\nUseCalendar=1\r\n"
            "CalendarDate=2024-05-06 07:08:09\r\nUseIconBox=1\r\nIconBoxGamma=205\r\n"
            "IconBoxBorder=1\r\nIconBoxBorderColor=206\r\nIconBoxOnlyIcons=1\r\n"
            "[ConvertList]\r\na=\"b\"\r\n";
    const TMuSettings settings = LoadSettings(TIniFile::FromText(text), {});
    EXPECT_EQ(Saved(settings, {1, "/w", 0}, AllSaveFlags), text);
    EXPECT_EQ(settings.Placement.Left, -106);
    EXPECT_TRUE(settings.IconBoxOnlyIcons);
}

TEST(Settings, HaveTheirDefaults)
{
    const TSettingsDefaults defaults{"/home/me/murala/", 45000.25, {800, 600, 10, 20}};
    for (const char* text : {"", "[Main]\nScheduleAt=soon\nLastChangeDate=7/3/26\nWidth=wide\n"}) {
        const TMuSettings settings = LoadSettings(TIniFile::FromText(text), defaults);
        EXPECT_EQ(settings.WallpaperPath, "/home/me/murala/");
        EXPECT_EQ(settings.ThumbnailFolder, "/home/me/murala/Thumbnails");
        EXPECT_EQ(settings.LastChangeDate, 45000.25);
        EXPECT_EQ(settings.ScheduleAt, 0.5);
        EXPECT_EQ(settings.Placement.Width, 800);
        EXPECT_EQ(settings.Placement.Top, 20);
        EXPECT_EQ(settings.Titles.ConvertList, DefaultConvertList());
    }
    const TIniFile file = TIniFile::FromText("[ConvertList]\n[Main]\nThumbnailFolder=/t\n");
    EXPECT_TRUE(LoadSettings(file, defaults).Titles.ConvertList.empty());
    EXPECT_EQ(LoadSettings(file, defaults).ThumbnailFolder, "/t");
}

TEST(Settings, OnlyChosenPartsAreWritten)
{
    const std::string before = "[Main]\r\nViewMode=1\r\nUnknown=x\r\n";
    TMuSettings settings;
    settings.IconBoxBorderColor = 0xFF000000;
    EXPECT_EQ(Saved(settings, {3, "/a", 3}, {}, before), before);
    EXPECT_EQ(Saved(settings, {3, "/a", 3}, Only({sfUnused}), before), before);
    EXPECT_EQ(Saved(settings, {3, "/a ", 3}, Only({sfWallpaperCurrent, sfViewMode}), before),
              "[Main]\r\nViewMode=0\r\nUnknown=x\r\nWallpaperCurrent3=\"/a \"\r\n");
    EXPECT_EQ(Saved(settings, {3, "", 0}, Only({sfWallpaperCurrent}), before), before + "");
    EXPECT_EQ(Saved(settings, {}, Only({sfPlacement}), ""),
              "[Main]\r\nWidth=650\r\nHeight=492\r\nLeft=249\r\nTop=123\r\n");
    const TIniFile colour = TIniFile::FromText(Saved(settings, {}, Only({sfIconBoxBorderColor})));
    EXPECT_EQ(LoadSettings(colour, {}).IconBoxBorderColor, 0xFF000000);
}

TEST(Settings, FindTheCurrentWallpaper)
{
    TMuWallpaperList list;
    const TIniFile file = TIniFile::FromText(
        "[Main]\nWallpaperCurrent=/b\nWallpaperCurrent2=/c\nWallpaperCurrent3=/x\n");
    EXPECT_EQ(LoadCurrentWallpaper(file, list, 0), -1);
    for (const char* name : {"/a", "/b", "/c"}) {
        auto item = std::make_unique<TMuWallpaper>();
        item->FileName = name;
        list.Add(std::move(item));
    }
    const int expected[] = {1, 1, 2, 0, 0}; // by desktop
    for (int desktop = 0; desktop < 5; ++desktop)
        EXPECT_EQ(LoadCurrentWallpaper(file, list, desktop), expected[desktop]) << desktop;
}

TEST(ConvertList, SurvivesAnyFindTextAndReplacement)
{
    const TConvertList list = {
        {"_", " "},
        {"()", ""},
        {"%20", " "},
        {"a=b", "="},
        {" lead", "x"},
        {"trail ", "x"},
        {";x", "y"},
        {"[x]", "y"},
        {"[x", "]"},
        {"\"q\"", "\"q\""},
        {"'q'", "'"},
        {"=", "\""},
        {"", "empty"},
        {"100%=%3D", ""},
        {"a\r\nb", "\"\""},
        {"a", "b"},
        {"A", "c"},
        {"a", "d"},
        {"\xC3\xBC", "\xC3\xBC "},
        {"\"", " "},
    };
    TIniFile file;
    file.WriteSection("ConvertList", ConvertListToPairs(list));
    const TIniFile read = TIniFile::FromText(file.ToText());
    EXPECT_EQ(PairsToConvertList(read.ReadSection("ConvertList")), list);
}

TEST(ConvertList, ReadsTheFormsThatStandInFiles)
{
    const TIniFile file =
        TIniFile::FromText("[ConvertList]\n_=\" \"\nx=y\n()=(blank)\n%20=\nbad%=z\n");
    EXPECT_EQ(PairsToConvertList(file.ReadSection("ConvertList")),
              (TConvertList{{"_", " "}, {"x", "y"}, {"()", ""}, {"%20", ""}, {"bad%", "z"}}));
}
