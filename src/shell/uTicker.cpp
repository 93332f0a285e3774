#include "uTicker.h"

#include "uCompose.h"
#include "uIconView.h"
#include "uPath.h"
#include "uSafeFile.h"

namespace murala
{

namespace
{

// A picture that cannot be shown is passed over, one a second. After this many in a row a drive is
// probably gone, and one a minute is tried.
constexpr int QuickChanges = 5;
constexpr TDateTime RestAfterFailures = 1 / MinutesPerDay;

bool IsResting(TDateTime now, TDateTime end)
{
    // A time further ahead was set before the clock was set back.
    return now < end && end < now + 2 * RestAfterFailures;
}

} // namespace

bool TTicker::IsChangeDue()
{
    TMuSettings& settings = m_core.Settings;
    if (m_core.Updating || m_core.Pauses.IsPaused() || !settings.Schedule.Use)
        return false;
    const TDateTime now = m_core.Services.Clock.Now();
    settings.Memory.LastChangeDate = LastChangeBefore(settings.Memory.LastChangeDate, now);
    // The screen saver is asked last, because that takes longest.
    return m_core.List.Count() >= 2 &&
           murala::IsChangeDue(settings.Schedule, settings.Memory.LastChangeDate, now) &&
           !IsResting(now, m_noChangeBefore) && !m_core.Services.ScreenSaver.IsRunning();
}

void TTicker::ScheduleTick()
{
    if (!IsChangeDue())
        return;
    const int next = m_core.Selection.RowOrCurrent() + 1;
    if (m_applier.TryRow((next + m_failedChanges) % m_core.List.Count()))
        m_failedChanges = 0;
    else
        PassOver();
}

void TTicker::PassOver()
{
    const TDateTime now = m_core.Services.Clock.Now();
    ++m_failedChanges;
    m_noChangeBefore = m_failedChanges < QuickChanges ? now : now + RestAfterFailures;
    if (m_failedChanges < m_core.List.Count())
        return;
    // No picture can be shown at all: wait until the next change is due.
    m_failedChanges = 0;
    m_core.Settings.Memory.LastChangeDate = now;
}

void TTicker::SetSchedule(const TScheduleSettings& schedule)
{
    m_core.Settings.Schedule = schedule;
    m_core.Settings.Memory.LastChangeDate = m_core.Services.Clock.Now();
    m_failedChanges = 0;
    m_noChangeBefore = 0;
    m_storage.SaveSettings(AllSaveFlags);
}

void TTicker::RefreshTick()
{
    if (m_core.Pauses.IsPaused() || m_core.Services.ScreenSaver.IsRunning())
        return;
    ComposeForScreens();
    const bool isNewDay = IsNewDay();
    {
        const TValueScope updating(m_core.Updating, true);
        RefreshLabels();
        m_tray.Refresh();
        if (isNewDay)
            DrawNewDay();
    }
    if (isNewDay) {
        m_core.Listeners.Tell(&TListener::PreviewChanged,
                              false); // the preview shows the calendar, too
        m_storage.SaveSettings(TSaveFlags().set(sfCalendarDate));
    }
    m_tray.RefreshMenu();
}

void TTicker::RefreshLabels()
{
    const TMuWallpaper* current = m_core.Selection.Current();
    if (m_core.Settings.Preferences.RefreshIcons && current != nullptr && current->TransparentIcons)
        SetIconsTransparent(m_core.Services.IconView);
}

// Before Murala has applied a wallpaper the desktop shows the user's own.
bool TTicker::IsDesktopOurs() const
{
    const std::string name = WallpaperBitmapName(m_core.Services.Siblings.GetVeyraDesktop());
    return m_core.Selection.Current() != nullptr && IsReachableFile(m_core.FilePath(name));
}

// Any other day counts, so that the calendar is right after the clock was set back.
bool TTicker::IsNewDay()
{
    const TMuSettings& settings = m_core.Settings;
    const TDateTime now = m_core.Services.Clock.Now();
    return settings.AddOns.UseCalendar && DayOf(settings.Memory.CalendarDate) != DayOf(now) &&
           !IsResting(now, m_noNewDayBefore) && IsDesktopOurs();
}

void TTicker::DrawNewDay()
{
    if (!ComposeAgain())
        m_noNewDayBefore = m_core.Services.Clock.Now() + RestAfterFailures;
}

// Composes the same wallpaper again and leaves its effect alone. LastChangeDate stays, or a
// schedule of several days would never be due.
bool TTicker::ComposeAgain()
{
    TDateTime& lastChange = m_core.Settings.Memory.LastChangeDate;
    const TValueScope unchanged(lastChange, lastChange);
    return m_applier.ComposeWallpaper(false, TReport::StatusLine);
}

void TTicker::ScreensChanged()
{
    m_isOtherScreen = true;
    ComposeForScreens();
}

// Put off during a dialog or a screen saver.
void TTicker::ComposeForScreens()
{
    if (!m_isOtherScreen || m_core.Updating || m_core.Pauses.IsPaused() ||
        m_core.Services.ScreenSaver.IsRunning())
        return;
    m_isOtherScreen = false;
    m_core.Listeners.Tell(&TListener::PreviewChanged,
                          false); // the preview has the screen's proportions
    if (IsDesktopOurs())
        ComposeAgain();
}

} // namespace murala
