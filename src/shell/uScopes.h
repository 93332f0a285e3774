// Guards: state that holds during a scope and is as before at its end, whatever is thrown.
#pragma once

#include "uListeners.h"
#include "uMainView.h"

#include <utility>

namespace murala
{

// Gives a variable another value.
template<typename T>
class TValueScope
{
public:
    TValueScope(T& variable, T value)
        : m_variable(variable), m_before(std::exchange(variable, value))
    {
    }
    TValueScope(const TValueScope&) = delete;
    TValueScope& operator=(const TValueScope&) = delete;
    ~TValueScope() { m_variable = m_before; }

private:
    T& m_variable;
    T m_before;
};

// Shows the hourglass.
class TBusyScope
{
public:
    explicit TBusyScope(TMainView& view) : m_view(view) { m_view.SetBusy(true); }
    TBusyScope(const TBusyScope&) = delete;
    TBusyScope& operator=(const TBusyScope&) = delete;
    ~TBusyScope() { m_view.SetBusy(false); }

private:
    TMainView& m_view;
};

// Keeps the window from taking input.
class TDisabledScope
{
public:
    explicit TDisabledScope(TMainView& view) : m_view(view) { m_view.EnableWindow(false); }
    TDisabledScope(const TDisabledScope&) = delete;
    TDisabledScope& operator=(const TDisabledScope&) = delete;
    ~TDisabledScope() { m_view.EnableWindow(true); }

private:
    TMainView& m_view;
};

// While a dialog or a message is open, or the wallpaper is being changed, messages are let through.
// During such a pause the schedule, the tray, other copies' files and the end of the program wait.
class TPauses
{
public:
    explicit TPauses(TListeners& listeners) : m_listeners(listeners) {}
    bool IsPaused() const { return m_depth > 0; }
    int Depth() const { return m_depth; }
    bool IsWorking() const { return m_isWorking; }

private:
    friend class TPauseScope;
    friend class TWorkScope;
    void Change(int by)
    {
        const bool was = IsPaused();
        m_depth += by;
        if (IsPaused() != was)
            m_listeners.Tell(&TListener::PauseChanged);
    }

    TListeners& m_listeners;
    int m_depth = 0;
    bool m_isWorking = false;
};

class TPauseScope
{
public:
    explicit TPauseScope(TPauses& pauses) : m_pauses(pauses) { m_pauses.Change(1); }
    TPauseScope(const TPauseScope&) = delete;
    TPauseScope& operator=(const TPauseScope&) = delete;
    ~TPauseScope() { m_pauses.Change(-1); }

private:
    TPauses& m_pauses;
};

// A pause in which the program works on its wallpapers: no action begins meanwhile.
class TWorkScope
{
public:
    explicit TWorkScope(TPauses& pauses) : m_pause(pauses), m_working(pauses.m_isWorking, true) {}

private:
    TPauseScope m_pause;
    TValueScope<bool> m_working;
};

} // namespace murala
