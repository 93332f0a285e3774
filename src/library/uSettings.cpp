#include "uSettings.h"

#include "uConvertList.h"
#include "uPath.h"
#include "uText.h"

#include <type_traits>

namespace murala
{

namespace
{

constexpr std::string_view MainSection = "Main";
constexpr std::string_view ConvertListSection = "ConvertList";
// Written once it is true, with the window's state.
constexpr std::string_view TrayExplainedKey = "TrayExplained";

// A time of day is a TDateTime, too, but has a stored form of its own.
template<class TValue>
struct TTimeOfDay {
    explicit TTimeOfDay(TValue& time) : Time(time) {}
    TValue& Time;
};

// The table of keys in the order of writing: calls at(flag, key, value) for each. TSettings is
// TMuSettings or const TMuSettings.
template<class TSettings, class TVisitor>
void ForEachKey(TSettings& s, const TVisitor& at)
{
    at(sfWallpaperPath, "WallpaperPath", s.WallpaperPath);
    at(sfPreviewSize, "PreviewSize", s.PreviewSize);
    at(sfThumbnailSize, "ThumbnailSize", s.ThumbnailSize);
    at(sfViewMode, "ViewMode", s.ViewMode);
    at(sfWindowState, "WindowState", s.WindowState);
    at(sfApplyOnStartup, "ApplyOnStartup", s.ApplyOnStartup);
    at(sfNextOnStartup, "NextOnStartup", s.NextOnStartup);
    at(sfPlacement, "Width", s.Placement.Width);
    at(sfPlacement, "Height", s.Placement.Height);
    at(sfPlacement, "Left", s.Placement.Left);
    at(sfPlacement, "Top", s.Placement.Top);
    at(sfUseSchedule, "UseSchedule", s.UseSchedule);
    at(sfScheduleFrequency, "ScheduleFrequency", s.ScheduleFrequency);
    at(sfScheduleUnits, "ScheduleUnits", s.ScheduleUnits);
    at(sfScheduleAt, "ScheduleAt", TTimeOfDay{s.ScheduleAt});
    at(sfScheduleOn, "ScheduleOn", s.ScheduleOn);
    at(sfLastChangeDate, "LastChangeDate", s.LastChangeDate);
    at(sfCapitaliseFirstLetter, "CapitaliseFirstLetter", s.Titles.CapitaliseFirstLetter);
    at(sfSpaceOutWords, "SpaceOutWords", s.Titles.SpaceOutWords);
    at(sfStickyEdges, "StickyEdges", s.StickyEdges);
    at(sfUseWallpaperCategories, "UseWallpaperCategories", s.UseWallpaperCategories);
    at(sfMaxTitleLength, "MaxTitleLength", s.Titles.MaxTitleLength);
    at(sfRefreshIcons, "RefreshIcons", s.RefreshIcons);
    at(sfDefaultTransparentIcons, "DefaultTransparentIcons", s.DefaultTransparentIcons);
    at(sfUseCalendar, "UseCalendar", s.UseCalendar);
    at(sfCalendarDate, "CalendarDate", s.CalendarDate);
    at(sfUseIconBox, "UseIconBox", s.UseIconBox);
    at(sfIconBoxGamma, "IconBoxGamma", s.IconBoxGamma);
    at(sfIconBoxBorder, "IconBoxBorder", s.IconBoxBorder);
    at(sfIconBoxBorderColor, "IconBoxBorderColor", s.IconBoxBorderColor);
    at(sfIconBoxOnlyIcons, "IconBoxOnlyIcons", s.IconBoxOnlyIcons);
}

// Reads a key over its default.
struct TReader {
    const TIniFile& File;

    void operator()(TSaveFlag, std::string_view key, std::string& value) const
    {
        value = File.ReadText(MainSection, key, value);
    }
    void operator()(TSaveFlag, std::string_view key, int& value) const
    {
        value = File.ReadInteger(MainSection, key, value);
    }
    template<class TEnum>
    requires std::is_enum_v<TEnum>
    void operator()(TSaveFlag, std::string_view key, TEnum& value) const
    {
        value = static_cast<TEnum>(File.ReadInteger(MainSection, key, value));
    }
    void operator()(TSaveFlag, std::string_view key, bool& value) const
    {
        value = File.ReadBoolean(MainSection, key, value);
    }
    void operator()(TSaveFlag, std::string_view key, TColor& value) const
    {
        const auto otherwise = static_cast<std::int32_t>(value);
        value = static_cast<TColor>(File.ReadInteger(MainSection, key, otherwise));
    }
    void operator()(TSaveFlag, std::string_view key, TDateTime& value) const
    {
        value = File.ReadDateTime(MainSection, key, value);
    }
    void operator()(TSaveFlag, std::string_view key, TTimeOfDay<TDateTime> value) const
    {
        value.Time = File.ReadTime(MainSection, key, value.Time);
    }
};

std::string StoredText(bool value)
{
    return value ? "1" : "0";
}
std::string StoredText(int value)
{
    return std::to_string(value);
}
std::string StoredText(TColor value)
{
    return std::to_string(static_cast<std::int32_t>(value));
}
std::string StoredText(TDateTime value)
{
    return DateTimeToText(value);
}
std::string StoredText(TTimeOfDay<const TDateTime> value)
{
    return TimeToText(value.Time);
}

std::string StoredText(const std::string& value)
{
    return QuotedIniText(value);
}

} // namespace

TMuSettings LoadSettings(const TIniFile& file, const TSettingsDefaults& defaults)
{
    TMuSettings settings;
    settings.WallpaperPath = defaults.ProgramFolder;
    settings.Placement = defaults.Placement;
    settings.LastChangeDate = defaults.Now;
    ForEachKey(settings, TReader{file});
    settings.TrayExplained = file.ReadBoolean(MainSection, TrayExplainedKey, false);
    const std::string folder = file.ReadText(MainSection, "ThumbnailFolder", "");
    settings.ThumbnailFolder =
        ResolvePath(defaults.ProgramFolder, folder.empty() ? "Thumbnails" : folder);
    if (file.HasSection(ConvertListSection))
        settings.Titles.ConvertList = PairsToConvertList(file.ReadSection(ConvertListSection));
    return settings;
}

void SaveSettings(TIniFile& file, const TMuSettings& settings, const TListState& list,
                  TSaveFlags parts)
{
    if (parts[sfWallpaperCount])
        file.Write(MainSection, "WallpaperCount", std::to_string(list.Count));
    if (parts[sfWallpaperCurrent] && !list.CurrentFileName.empty())
        file.Write(MainSection, WallpaperCurrentKey(list.Desktop),
                   QuotedIniText(list.CurrentFileName));
    ForEachKey(settings, [&](TSaveFlag flag, std::string_view key, const auto& value) {
        if (parts[flag])
            file.Write(MainSection, key, StoredText(value));
    });
    if (parts[sfWindowState] && settings.TrayExplained)
        file.Write(MainSection, TrayExplainedKey, StoredText(true));
    if (parts[sfConvertList])
        file.WriteSection(ConvertListSection, ConvertListToPairs(settings.Titles.ConvertList));
}

std::string WallpaperCurrentKey(int desktop)
{
    return "WallpaperCurrent" + (desktop >= 2 ? std::to_string(desktop) : std::string());
}

int LoadCurrentWallpaper(const TIniFile& file, const TMuWallpaperList& list, int desktop)
{
    const int index =
        list.IndexOfFileName(file.ReadText(MainSection, WallpaperCurrentKey(desktop), ""));
    return index == -1 && list.Count() > 0 ? 0 : index;
}

} // namespace murala
