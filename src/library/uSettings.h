// The program-wide settings and their file.
#pragma once

#include "uDateTime.h"
#include "uIniFile.h"
#include "uTitle.h"
#include "uWallpaper.h"

#include <bitset>
#include <string>

namespace murala
{

inline constexpr std::string_view SettingsFileName = "Murala.ini";

// The main window's normal (restored) placement in pixels.
struct TPlacement {
    int Width = 650, Height = 492, Left = 249, Top = 123;
};

enum TPreviewSize : int { psMini, psNormal, psLarge };
enum TThumbnailSize : int { tsSmall, tsNormal, tsLarge };
enum TViewMode : int { vmList, vmThumbnails };
enum TScheduleUnits : int { suWeek, suDay, suHour, suMinute };

// The enumerations hold what the file says, which may be none of their values.
struct TMuSettings {
    std::string WallpaperPath; // the folder last added from
    TPreviewSize PreviewSize = psNormal;
    TThumbnailSize ThumbnailSize = tsNormal;
    TViewMode ViewMode = vmList;
    bool WindowState = true;    // the main window was visible
    bool TrayExplained = false; // the user knows where a hidden window is
    bool ApplyOnStartup = false;
    bool NextOnStartup = false;
    TPlacement Placement;
    bool UseSchedule = false;
    int ScheduleFrequency = 1;
    TScheduleUnits ScheduleUnits = suDay;
    TDateTime ScheduleAt = 0.5;
    int ScheduleOn = 0; // 0 Monday .. 6 Sunday
    TDateTime LastChangeDate = 0;
    TTitleRules Titles;
    bool StickyEdges = true;
    bool UseWallpaperCategories = true;
    bool RefreshIcons = true;
    bool DefaultTransparentIcons = false;
    bool UseCalendar = false;
    TDateTime CalendarDate = 0;
    bool UseIconBox = false;
    int IconBoxGamma = 128;
    bool IconBoxBorder = false;
    TColor IconBoxBorderColor = 0xFFFFFF;
    bool IconBoxOnlyIcons = false;
    std::string ThumbnailFolder; // read only, never written
};

// One flag a group of keys, in the order of writing.
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

// What the defaults of some keys depend on.
struct TSettingsDefaults {
    std::string ProgramFolder;
    TDateTime Now = 0;
    TPlacement Placement; // the window's present one, or the screen's size on a narrow screen
};

// Every key but WallpaperCount and WallpaperCurrent.
TMuSettings LoadSettings(const TIniFile& file, const TSettingsDefaults& defaults);

// What the two keys about the list are made from.
struct TListState {
    int Count = 0;
    std::string CurrentFileName; // empty: no current wallpaper, the key is left as it is
    // Number of the virtual desktop, 0 when unknown. Only sfWallpaperCurrent needs it: another
    // program has to be asked.
    int Desktop = 0;
};

// An empty set changes nothing.
void SaveSettings(TIniFile& file, const TMuSettings& settings, const TListState& list,
                  TSaveFlags parts);

// "WallpaperCurrent", with the number behind it from the second virtual desktop on.
std::string WallpaperCurrentKey(int desktop);

// The index of the current wallpaper as the file names it: the first item when it is not in the
// list, -1 for an empty list.
int LoadCurrentWallpaper(const TIniFile& file, const TMuWallpaperList& list, int desktop);

} // namespace murala
