// What the program does by itself as time goes by.
#pragma once

#include "uApplier.h"
#include "uSchedule.h"
#include "uStorage.h"
#include "uTray.h"

namespace murala
{

class TTicker
{
public:
    TTicker(TCore& core, TStorage& storage, TApplier& applier, TTray& tray)
        : m_core(core), m_storage(storage), m_applier(applier), m_tray(tray),
          m_way(core.Services.Door)
    {
        m_core.Services.Desktop.ListenToScreens(m_way.Through([this] { ScreensChanged(); }));
    }

    // Every second: changes the wallpaper when the schedule says so.
    void ScheduleTick();
    void SetSchedule(const TScheduleSettings& schedule);
    // Every five seconds: the icons' labels as the current wallpaper wants them (the shell forgets
    // it now and then), the tray icon, which is lost when the shell begins anew, and the calendar
    // on the desktop as the day wants it.
    void RefreshTick();

    // Another monitor or resolution: the wallpaper is made for it.
    void ScreensChanged();

private:
    void ComposeForScreens();
    bool ComposeAgain();
    bool IsChangeDue();
    void PassOver();
    bool IsDesktopOurs() const;
    bool IsNewDay();
    void DrawNewDay();
    void RefreshLabels();

    TCore& m_core;
    TStorage& m_storage;
    TApplier& m_applier;
    TTray& m_tray;
    int m_failedChanges = 0;        // one after the other
    TDateTime m_noChangeBefore = 0; // after too many of them
    TDateTime m_noNewDayBefore = 0; // after a failure
    bool m_isOtherScreen = false;   // than the wallpaper was made for
    TDoorway m_way;
};

} // namespace murala
