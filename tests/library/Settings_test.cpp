#include "uSettings.h"

#include "uConvertList.h"

#include <gtest/gtest.h>

using namespace murala;

namespace
{

// What the file holds afterwards; the parts are bits.
std::string Saved(const TMuSettings& settings, unsigned long long parts,
                  const TListState& list = {}, std::string_view before = "")
{
    TIniFile file = TIniFile::FromText(before);
    SaveSettings(file, settings, list, parts);
    return file.ToText();
}

constexpr auto All = ~(1ULL << sfWallpaperCount);

// All keys with their defaults, and one of our own with another value.
constexpr std::string_view AllKeys =
    "[Main]\r\nWallpaperPath=\r\nPreviewSize=1\r\nThumbnailSize=1\r\nViewMode=0\r\n"
    "WindowState=1\r\nApplyOnStartup=0\r\nNextOnStartup=0\r\nWidth=650\r\nHeight=492\r\n"
    "Left=249\r\nTop=123\r\nUseSchedule=0\r\nScheduleFrequency=1\r\nScheduleUnits=1\r\n"
    "ScheduleAt=12:00:00\r\nScheduleOn=0\r\nLastChangeDate=1899-12-30 00:00:00\r\n"
    "CapitaliseFirstLetter=1\r\nSpaceOutWords=1\r\nStickyEdges=1\r\n"
    "UseWallpaperCategories=1\r\nMaxTitleLength=40\r\nRefreshIcons=1\r\n"
    "DefaultTransparentIcons=0\r\nUseCalendar=0\r\nCalendarDate=1899-12-30 00:00:00\r\n"
    "UseIconBox=0\r\nIconBoxGamma=128\r\nIconBoxBorder=0\r\n"
    "IconBoxBorderColor=16777215\r\nIconBoxOnlyIcons=0\r\nTrayExplained=1\r\n"
    "[ConvertList]\r\n_=\" \"\r\n()=(blank)\r\n";

// A value of the same form.
std::string AnotherValue(const std::string& value)
{
    if (value.find(':') != std::string::npos)
        return std::string("2024-05-06 07:08:09").substr(19 - value.size());
    return value == "0" ? "1" : value == "1" ? "0" : value.empty() ? "\" x\"" : "-" + value;
}

} // namespace

TEST(Settings, AreWrittenInTheirOrderAndReadBackIntoTheirOwnPlaces)
{
    TMuSettings settings;
    settings.Preferences.Titles.ConvertList = {{"_", " "}, {"()", ""}};
    settings.Window.TrayExplained = true;
    EXPECT_EQ(Saved(settings, All), AllKeys);
    for (const auto& [key, value] : TIniFile::FromText(AllKeys).ReadSection("Main")) {
        TIniFile file = TIniFile::FromText(AllKeys);
        file.Write("Main", key, AnotherValue(value));
        EXPECT_EQ(Saved(LoadSettings(file, {}), All, {}, AllKeys), file.ToText());
    }
}

TEST(Settings, AReadingInBetweenTakesWhatAnotherProgramMayChange)
{
    TIniFile other = TIniFile::FromText(AllKeys);
    for (const auto& [key, value] : other.ReadSection("Main"))
        other.Write("Main", key, AnotherValue(value));
    other.Write("Main", "ThumbnailFolder", "/other");
    other.WriteSection("ConvertList", {});
    const TMuSettings settings =
        ReloadSettings(other, {}, LoadSettings(TIniFile::FromText(AllKeys), {}));
    const TIniFile saved = TIniFile::FromText(Saved(settings, All, {}, other.ToText()));
    std::string kept;
    for (const auto& [key, value] : TIniFile::FromText(AllKeys).ReadSection("Main"))
        if (saved.Read("Main", key) == value)
            kept += key + ' ';
    EXPECT_EQ(kept, "WindowState Width Height Left Top LastChangeDate CalendarDate ");
    EXPECT_NE(settings.Memory.ThumbnailFolder, "/other") << "the list has its folder already";
    EXPECT_TRUE(settings.Preferences.Titles.ConvertList.empty());
}

// Each once, in their order: the flags stand in the order of the keys but for a few.
TEST(Settings, EveryFlagWritesItsOwnKeys)
{
    TMuSettings settings;
    settings.Preferences.Titles.ConvertList = {{"a pair", "x"}};
    std::string keys;
    for (std::size_t flag = 0; flag < AllSaveFlags.size(); ++flag) {
        const TIniFile file = TIniFile::FromText(Saved(settings, 1ULL << flag, {1, "/a"}));
        for (const char* section : {"Main", "ConvertList"})
            for (const auto& [key, value] : file.ReadSection(section))
                keys += key + ' ';
        keys += flag % 8 == 7 ? "\n" : "| ";
    }
    EXPECT_EQ(keys, "WallpaperCount | WallpaperCurrent | WallpaperPath | PreviewSize | "
                    "ThumbnailSize | ViewMode | WindowState | ApplyOnStartup \n"
                    "NextOnStartup | Width Height Left Top | UseSchedule | ScheduleFrequency | "
                    "ScheduleUnits | ScheduleAt | ScheduleOn | LastChangeDate \n"
                    "CapitaliseFirstLetter | SpaceOutWords | a pair | | StickyEdges | "
                    "MaxTitleLength | UseWallpaperCategories | RefreshIcons \n"
                    "DefaultTransparentIcons | UseCalendar | CalendarDate | UseIconBox | "
                    "IconBoxGamma | IconBoxBorder | IconBoxBorderColor | IconBoxOnlyIcons \n");
}

TEST(Settings, HaveTheirDefaults)
{
    const TSettingsDefaults defaults{"/home/me/", 45000.25, {800, 600, 10, 20}};
    TIniFile file = TIniFile::FromText("[Main]\nLastChangeDate=7/3/26\nWidth=wide\n"
                                       "UseSchedule=2\nUseIconBox=-1\n");
    const TMuSettings settings = LoadSettings(file, defaults);
    EXPECT_EQ(settings.Memory.WallpaperPath, "/home/me/");
    EXPECT_EQ(settings.Memory.ThumbnailFolder, "/home/me/Thumbnails");
    EXPECT_EQ(settings.Memory.LastChangeDate, 45000.25);
    EXPECT_EQ(settings.Window.Placement.Width, 800);
    EXPECT_TRUE(settings.Schedule.Use && settings.AddOns.UseIconBox);
    EXPECT_EQ(settings.Preferences.Titles.ConvertList, DefaultConvertList());
    file = TIniFile::FromText("[ConvertList]\n[Main]\nThumbnailFolder=/t\n");
    EXPECT_TRUE(LoadSettings(file, defaults).Preferences.Titles.ConvertList.empty());
    EXPECT_EQ(LoadSettings(file, defaults).Memory.ThumbnailFolder, "/t");
}

TEST(Settings, OnlyChosenPartsAreWritten)
{
    const std::string before = "[Main]\r\nViewMode=1\r\nUnknown=x\r\n";
    constexpr unsigned current = 1U << sfWallpaperCurrent;
    EXPECT_EQ(Saved({}, current | 1U << sfUnused, {3, "", 0}, before), before);
    EXPECT_EQ(Saved({}, current | 1U << sfViewMode, {3, "/a ", 3}, before),
              "[Main]\r\nViewMode=0\r\nUnknown=x\r\nWallpaperCurrent3=\"/a \"\r\n");
    TMuSettings settings;
    settings.Window.TrayExplained = true; // which is written once it is so
    EXPECT_EQ(Saved(settings, 1U << sfWindowState),
              "[Main]\r\nWindowState=1\r\nTrayExplained=1\r\n");
    EXPECT_EQ(Saved({}, current | 1U << sfWallpaperCount, {3, "/a", 1}),
              "[Main]\r\nWallpaperCount=3\r\nWallpaperCurrent=/a\r\n");
}

TEST(ConvertList, SurvivesAnyFindTextAndReplacement)
{
    const TConvertList list = {
        {"_", " "},      {"()", ""},       {"a=b", "="},    {" lead", "x"},
        {"trail ", "'"}, {";x", "y"},      {"[x", "]"},     {"\"q\"", "\"q\""},
        {"=", "\""},     {"", "empty"},    {"a\r\nb", "x"}, {"A", "c"},
        {"a", "d"},      {"100%=%3D", ""}, {"\"", " "},     {"\xC3\xBC", "\"\""}};
    TIniFile file;
    file.WriteSection("ConvertList", ConvertListToPairs(list));
    file = TIniFile::FromText(file.ToText());
    EXPECT_EQ(PairsToConvertList(file.ReadSection("ConvertList")), list);
    EXPECT_EQ(PairsToConvertList({{"x", "y"}, {"()", "(blank)"}, {"%20", ""}, {"bad%", "z"}}),
              (TConvertList{{"x", "y"}, {"()", ""}, {"%20", ""}, {"bad%", "z"}}));
}

TEST(Settings, ANewUsersFileGetsWhatItLacks)
{
    const TIniFile first = TIniFile::FromText(
        "[Main]\r\nViewMode=1\r\nPreviewSize=2\r\nWallpaperCount=7\r\nThumbnailFolder=\" t\"\r\n"
        "[ConvertList]\r\n-=\" \"\r\n(x)=(blank)\r\n[Other]\r\na=b\r\n");
    const auto given = [&](std::string_view user) {
        TIniFile file = TIniFile::FromText(user);
        AddFirstSettings(file, first);
        return file.ToText();
    };
    EXPECT_EQ(given("[Main]\r\nViewMode=0\r\n"),
              "[Main]\r\nViewMode=0\r\nPreviewSize=2\r\nThumbnailFolder=\" t\"\r\n"
              "[ConvertList]\r\n-=\" \"\r\n(x)=(blank)\r\n");
    EXPECT_EQ(
        given("[ConvertList]\r\n"),
        "[ConvertList]\r\n[Main]\r\nPreviewSize=2\r\nViewMode=1\r\nThumbnailFolder=\" t\"\r\n")
        << "an empty list is the user's own";
    EXPECT_TRUE(IsNewUsersFile(TIniFile::FromText(Saved({}, All))));
    EXPECT_FALSE(IsNewUsersFile(TIniFile::FromText(Saved({}, ~0ULL))));
}
