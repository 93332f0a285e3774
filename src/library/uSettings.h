// The program-wide settings and their file.
#pragma once

#include "uDateTime.h"
#include "uIniFile.h"
#include "uTitle.h"
#include "uWallpaper.h"

#include <bitset>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <variant>

namespace murala
{

inline constexpr std::string_view SettingsFileName = "Murala.ini";
// The settings that a new user starts with; lies where the program's own files are.
inline constexpr std::string_view FirstSettingsFileName = "Murala.default.ini";

// The main window's normal (restored) placement in pixels.
struct TPlacement {
    int Width = 650, Height = 492, Left = 249, Top = 123;
};

enum TPreviewSize : int { psMini, psNormal, psLarge };
enum TThumbnailSize : int { tsSmall, tsNormal, tsLarge };
enum TViewMode : int { vmList, vmThumbnails };
enum TScheduleUnits : int { suWeek, suDay, suHour, suMinute };

// The settings, in groups that have one owner each: only the owner changes them, and a dialog edits
// a copy of the whole group. A field's initial value is the default of its key. The enumerations
// hold the number that the file says, which may be none of their values.

// Owner: the configuration dialog, and the actions of its start page.
struct TPreferences {
    bool ApplyOnStartup = false;
    bool NextOnStartup = false;
    TTitleRules Titles;
    bool StickyEdges = true;
    bool UseWallpaperCategories = true;
    bool RefreshIcons = true;
    bool DefaultTransparentIcons = false;
};

// When the wallpaper changes by itself. Owner: the schedule's dialog.
struct TScheduleSettings {
    bool Use = false;
    int Frequency = 1; // at least 1
    TScheduleUnits Units = suDay;
    TDateTime At = 0.5; // time of day, for weeks and days
    int On = 0;         // weekday, for weeks: 0 Monday .. 6 Sunday
};

// Owner: the icon box's dialog.
struct TIconBoxSettings {
    int Gamma = 128; // -255..255
    bool Border = false;
    bool OnlyIcons = false;
    TColor BorderColor = 0xFFFFFF;
};

// Owner: the actions that switch the add-ons.
struct TAddOnSwitches {
    bool UseCalendar = false;
    bool UseIconBox = false;
};

// Owner: the main window.
struct TWindowSettings {
    TPreviewSize PreviewSize = psNormal;
    TThumbnailSize ThumbnailSize = tsNormal;
    TViewMode ViewMode = vmList;
    bool IsVisible = true; // not hidden in the tray
    TPlacement Placement;
    bool TrayExplained = false; // the user knows where a hidden window is
};

// What the program remembers by itself.
struct TMemory {
    std::string WallpaperPath;    // the folder last added from
    TDateTime LastChangeDate = 0; // of the wallpaper
    TDateTime CalendarDate = 0;   // the day that the calendar on the desktop shows
    std::string ThumbnailFolder;  // only the user changes it, in the file
};

struct TMuSettings {
    TPreferences Preferences;
    TScheduleSettings Schedule;
    TIconBoxSettings IconBox;
    TAddOnSwitches AddOns;
    TWindowSettings Window;
    TMemory Memory;
};

// Which keys are saved, in the order of writing but for a few.
enum TSaveFlag {
    sfWallpaperCount,
    sfWallpaperCurrent,
    sfWallpaperPath,
    sfPreviewSize,
    sfThumbnailSize,
    sfViewMode,
    sfWindowState,
    sfApplyOnStartup,
    sfNextOnStartup,
    sfPlacement,
    sfUseSchedule,
    sfScheduleFrequency,
    sfScheduleUnits,
    sfScheduleAt,
    sfScheduleOn,
    sfLastChangeDate,
    sfCapitaliseFirstLetter,
    sfSpaceOutWords,
    sfConvertList,
    sfUnused,
    sfStickyEdges,
    sfMaxTitleLength,
    sfUseWallpaperCategories,
    sfRefreshIcons,
    sfDefaultTransparentIcons,
    sfUseCalendar,
    sfCalendarDate,
    sfUseIconBox,
    sfIconBoxGamma,
    sfIconBoxBorder,
    sfIconBoxBorderColor,
    sfIconBoxOnlyIcons,
};
using TSaveFlags = std::bitset<32>;
inline const TSaveFlags AllSaveFlags = TSaveFlags().set();

// Where a key's value is, by the form that it has in the file. A time of day is a TDateTime, too,
// but has a form of its own.
struct TTimeOfDay {
    TDateTime* Time;
    TDateTime& operator*() const { return *Time; }
};
using TSettingField =
    std::variant<bool*, int*, std::string*, TColor*, TDateTime*, TTimeOfDay, TPreviewSize*,
                 TThumbnailSize*, TViewMode*, TScheduleUnits*, TConvertList*>;

template<typename TGroup, typename TField>
TSettingField FieldOf(TMuSettings& s, TField TGroup::*member)
{
    const auto groups = std::tie(s.Preferences, s.Preferences.Titles, s.Schedule, s.IconBox,
                                 s.AddOns, s.Window, s.Window.Placement, s.Memory);
    TField* field = &(std::get<TGroup&>(groups).*member);
    if constexpr (std::is_same_v<TGroup, TScheduleSettings> && std::is_same_v<TField, TDateTime>)
        return TTimeOfDay{field};
    else
        return field;
}

template<auto Member>
TSettingField At(TMuSettings& settings)
{
    return FieldOf(settings, Member);
}

// What a reading while the program runs does with the value in memory.
enum class TReload {
    Take, // another program may have changed it in the file
    Keep, // it changes more often than it is saved, or it counts at the start only
};

enum class TStore {
    Always,
    OnceChanged, // for keys of our own: not before there is another value than the default
    Never,
};

struct TSettingKey {
    std::string_view Section, Name; // without a name: the whole section
    TSettingField (*Field)(TMuSettings&);
    TSaveFlag Flag; // a key of our own is saved with another one of its group
    TReload Reload = TReload::Take;
    TStore Store = TStore::Always;
};

inline constexpr std::string_view MainSection = "Main";

// Every key but those about the list, in the order of writing.
inline constexpr TSettingKey SettingKeys[] = {
    {MainSection, "WallpaperPath", At<&TMemory::WallpaperPath>, sfWallpaperPath},
    {MainSection, "PreviewSize", At<&TWindowSettings::PreviewSize>, sfPreviewSize},
    {MainSection, "ThumbnailSize", At<&TWindowSettings::ThumbnailSize>, sfThumbnailSize},
    {MainSection, "ViewMode", At<&TWindowSettings::ViewMode>, sfViewMode},
    {MainSection, "WindowState", At<&TWindowSettings::IsVisible>, sfWindowState, TReload::Keep},
    {MainSection, "ApplyOnStartup", At<&TPreferences::ApplyOnStartup>, sfApplyOnStartup},
    {MainSection, "NextOnStartup", At<&TPreferences::NextOnStartup>, sfNextOnStartup},
    {MainSection, "Width", At<&TPlacement::Width>, sfPlacement, TReload::Keep},
    {MainSection, "Height", At<&TPlacement::Height>, sfPlacement, TReload::Keep},
    {MainSection, "Left", At<&TPlacement::Left>, sfPlacement, TReload::Keep},
    {MainSection, "Top", At<&TPlacement::Top>, sfPlacement, TReload::Keep},
    {MainSection, "UseSchedule", At<&TScheduleSettings::Use>, sfUseSchedule},
    {MainSection, "ScheduleFrequency", At<&TScheduleSettings::Frequency>, sfScheduleFrequency},
    {MainSection, "ScheduleUnits", At<&TScheduleSettings::Units>, sfScheduleUnits},
    {MainSection, "ScheduleAt", At<&TScheduleSettings::At>, sfScheduleAt},
    {MainSection, "ScheduleOn", At<&TScheduleSettings::On>, sfScheduleOn},
    {MainSection, "LastChangeDate", At<&TMemory::LastChangeDate>, sfLastChangeDate, TReload::Keep},
    {MainSection, "CapitaliseFirstLetter", At<&TTitleRules::CapitaliseFirstLetter>,
     sfCapitaliseFirstLetter},
    {MainSection, "SpaceOutWords", At<&TTitleRules::SpaceOutWords>, sfSpaceOutWords},
    {MainSection, "StickyEdges", At<&TPreferences::StickyEdges>, sfStickyEdges},
    {MainSection, "UseWallpaperCategories", At<&TPreferences::UseWallpaperCategories>,
     sfUseWallpaperCategories},
    {MainSection, "MaxTitleLength", At<&TTitleRules::MaxTitleLength>, sfMaxTitleLength},
    {MainSection, "RefreshIcons", At<&TPreferences::RefreshIcons>, sfRefreshIcons},
    {MainSection, "DefaultTransparentIcons", At<&TPreferences::DefaultTransparentIcons>,
     sfDefaultTransparentIcons},
    {MainSection, "UseCalendar", At<&TAddOnSwitches::UseCalendar>, sfUseCalendar},
    {MainSection, "CalendarDate", At<&TMemory::CalendarDate>, sfCalendarDate, TReload::Keep},
    {MainSection, "UseIconBox", At<&TAddOnSwitches::UseIconBox>, sfUseIconBox},
    {MainSection, "IconBoxGamma", At<&TIconBoxSettings::Gamma>, sfIconBoxGamma},
    {MainSection, "IconBoxBorder", At<&TIconBoxSettings::Border>, sfIconBoxBorder},
    {MainSection, "IconBoxBorderColor", At<&TIconBoxSettings::BorderColor>, sfIconBoxBorderColor},
    {MainSection, "IconBoxOnlyIcons", At<&TIconBoxSettings::OnlyIcons>, sfIconBoxOnlyIcons},
    {MainSection, "TrayExplained", At<&TWindowSettings::TrayExplained>, sfWindowState,
     TReload::Take, TStore::OnceChanged},
    {MainSection, "ThumbnailFolder", At<&TMemory::ThumbnailFolder>, sfUnused, TReload::Keep,
     TStore::Never},
    {"ConvertList", "", At<&TTitleRules::ConvertList>, sfConvertList},
};

// What the defaults of some keys depend on.
struct TSettingsDefaults {
    std::string ProgramFolder;
    TDateTime Now = 0;
    TPlacement Placement; // the window's present one, or the screen's size on a narrow screen
};

TMuSettings LoadSettings(const TIniFile& file, const TSettingsDefaults& defaults);
// The file's values and those that a reading keeps.
TMuSettings ReloadSettings(const TIniFile& file, const TSettingsDefaults& defaults,
                           TMuSettings present);

// Whether Murala has never saved all settings into the file.
bool IsNewUsersFile(const TIniFile& file);
// Gives the file what it lacks of the keys, and of the whole sections, in SettingKeys.
void AddFirstSettings(TIniFile& file, const TIniFile& first);

// What the two keys about the list are made from.
struct TListState {
    int Count = 0;
    std::string CurrentFileName; // empty: no current wallpaper, the key is left as it is
    // Number of the virtual desktop, 0 when unknown. Only sfWallpaperCurrent needs it: another
    // program has to be asked.
    int Desktop = 0;
};

// An empty set changes nothing.
void SaveSettings(TIniFile& file, TMuSettings settings, const TListState& list, TSaveFlags parts);

// "WallpaperCurrent", with the number behind it from the second virtual desktop on.
std::string WallpaperCurrentKey(int desktop);

// The index of the current wallpaper as the file names it: the first item when it is not in the
// list, -1 for an empty list.
int LoadCurrentWallpaper(const TIniFile& file, const TMuWallpaperList& list, int desktop);

} // namespace murala
