#include "uTicker.h"

#include "uIconView.h"

namespace murala
{

namespace
{

// So many pictures that cannot be shown are passed over a second apart; a drive may be gone, so
// from then on one is tried a minute.
constexpr int QuickChanges = 5;
constexpr TDateTime RestAfterFailures = 1 / MinutesPerDay;

} // namespace

bool TTicker::IsResting(TDateTime now) const
{
    // A moment further off than that is one from before the clock was set back.
    return now < m_noChangeBefore && m_noChangeBefore < now + 2 * RestAfterFailures;
}

bool TTicker::IsChangeDue()
{
    TMuSettings& settings = m_core.Settings;
    if (m_core.Updating || m_core.Pauses.IsPaused() || !settings.UseSchedule)
        return false;
    const TDateTime now = m_core.Services.Clock.Now();
    settings.LastChangeDate = LastChangeBefore(settings.LastChangeDate, now);
    // Asking for the screen saver takes longest.
    return m_core.List.Count() >= 2 &&
           murala::IsChangeDue(ScheduleOf(settings), settings.LastChangeDate, now) &&
           !IsResting(now) && !m_core.Services.ScreenSaver.IsRunning();
}

void TTicker::ScheduleTick()
{
    if (!IsChangeDue())
        return;
    const int selected = m_core.Selection.Row();
    const int from = selected >= 0 ? selected : m_core.Selection.CurrentIndex();
    if (m_applier.TryRow((from + 1 + m_failedChanges) % m_core.List.Count()))
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
    // Not one of the pictures can be shown: try again when the next change is due.
    m_failedChanges = 0;
    m_core.Settings.LastChangeDate = now;
}

void TTicker::SetSchedule(const TScheduleSettings& schedule)
{
    SetScheduleOf(m_core.Settings, schedule);
    m_core.Settings.LastChangeDate = m_core.Services.Clock.Now();
    m_failedChanges = 0;
    m_noChangeBefore = 0;
    m_storage.SaveSettings(AllSaveFlags);
}

void TTicker::RefreshTick()
{
    if (m_core.Pauses.IsPaused())
        return;
    const TMuWallpaper* current = m_core.Selection.Current();
    if (!m_core.Settings.RefreshIcons || current == nullptr || !current->TransparentIcons ||
        m_core.Services.ScreenSaver.IsRunning())
        return;
    const TValueScope updating(m_core.Updating, true);
    SetIconsTransparent(m_core.Services.IconView);
}

} // namespace murala
