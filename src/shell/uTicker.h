// What the program does by itself: schedule, labels, tray icon, new day, new screens.
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

    // To be called every second. Changes the wallpaper when it is due.
    void ScheduleTick();
    void SetSchedule(const TScheduleSettings& schedule);
    // To be called every five seconds. Makes the labels transparent again (the shell forgets it now
    // and then), puts the tray icon back (it is lost when the shell starts anew), and draws the
    // calendar of a new day.
    void RefreshTick();

    // Monitors or resolutions changed: makes the wallpaper for them.
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
    int m_failedChanges = 0;        // in succession
    TDateTime m_noChangeBefore = 0; // set after too many failures
    TDateTime m_noNewDayBefore = 0; // after a failure
    bool m_isOtherScreen = false;   // screens have changed since the wallpaper was made
    TDoorway m_way;
};

} // namespace murala
