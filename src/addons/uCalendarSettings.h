// What the user has chosen for the calendar, and its file.
#pragma once

#include "uColor.h"
#include "uFont.h"
#include "uIniFile.h"

#include <string>
#include <string_view>

namespace murala
{

inline constexpr std::string_view CalendarFileName = "mucalendar.ini"; // in the program folder
inline constexpr std::string_view CalendarSection = "Options";

struct TCalendarSettings {
    std::string TitleFormat; // as FormatDate takes it
    int CalendarWidth = 0, CalendarHeight = 0;
    int CalendarX = 0, CalendarY = 0; // percent of the free space of the picture
    // Each value -255..255 from the editor; what lies beyond is drawn as the nearest tint.
    TTint MainGamma, TitleGamma, DayHeadingGamma, DayBoxGamma;
    TMuFont TitleFont, DayHeadingFont, DayFont;
    bool CalendarBorders = false;
    TColor BorderColor = 0xFFFFFF;

    friend bool operator==(const TCalendarSettings&, const TCalendarSettings&) = default;
};

// The calendar as it is out of the box.
TCalendarSettings DefaultCalendarSettings();

// What is missing or of the wrong form has its default.
TCalendarSettings LoadCalendarSettings(const TIniFile& file, std::string_view section);
void SaveCalendarSettings(TIniFile& file, std::string_view section,
                          const TCalendarSettings& settings);

// What the calendar's editor keeps for itself in the same section.
struct TCalendarEditorSettings {
    int ViewMode = 1; // 0 fit to window, 1 actual size
    std::string BackgroundFileName = "Planet02.jpg";

    friend bool operator==(const TCalendarEditorSettings&,
                           const TCalendarEditorSettings&) = default;
};
TCalendarEditorSettings LoadCalendarEditorSettings(const TIniFile& file, std::string_view section);
// With a background from the caller the file's name is left as it is.
void SaveCalendarEditorSettings(TIniFile& file, std::string_view section,
                                const TCalendarEditorSettings& settings, bool hasBackgroundFile);

} // namespace murala
