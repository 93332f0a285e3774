// Where the main window is: on the screen, behind the tray icon or in the task bar.
#pragma once

#include <functional>
#include <utility>

namespace murala
{

enum class TPresence {
    Starting, // it was not shown yet
    Hidden,   // only the tray icon brings it back
    Coming,   // it was asked to show, and the window manager has not placed it yet
    Shown,
    Icon,  // in the task bar
    Going, // the program ends
};

// What the presence does with the window. The system may carry out some of it later, or not at all.
class TFrame
{
public:
    virtual ~TFrame() = default;

    // On the screen or, when it is an icon, in the task bar. CameToScreen follows.
    virtual void ShowFrame() = 0;
    virtual void HideFrame() = 0;
    // Iconized follows, if the window manager has icons.
    virtual void IconizeFrame(bool iconize) = 0;
    virtual bool IsIcon() const = 0;
    virtual void RaiseFrame() = 0;
    // Gives it the size and the place back that the window manager has changed.
    virtual void PlaceFrame(bool isFirstTime) = 0;
    // It is visible again.
    virtual void Appear() = 0;
    // The user has hidden it: says where it is, once.
    virtual void ExplainHiding() = 0;

    // Settled and HideIcon follow a moment later; a second wish begins the time anew.
    virtual void WaitToSettle() = 0;
    virtual void WaitToHideIcon() = 0;
    // Between two events the window is asked to close, or takes in other copies' files.
    virtual void CloseLater() = 0;
    virtual void WakeLater() = 0;
};

// What brings a hidden window back.
struct TWayBack {
    bool IsThere = false;
    bool IsAsked = false; // the desktop has not answered yet whether there is one
};

class TWindowPresence
{
public:
    TWindowPresence(TFrame& frame, std::function<TWayBack()> wayBack)
        : m_frame(frame), m_wayBack(std::move(wayBack))
    {
    }

    TPresence Where() const { return m_where; }
    // Whether the user sees it, or will as soon as it has started. At the end: as it was before.
    bool IsVisible() const { return m_isVisible; }

    // Before the start: how it will start.
    void WillStart(bool visible) { m_isVisible = visible; }
    void Start();

    // The user's wishes. Where nothing brings it back, it is not hidden but made an icon.
    void Minimise();
    void Restore();

    // What the window is told.
    void CameToScreen();
    void Iconized(bool isIcon);
    void Settled();
    void HideIcon();
    void WayBackChanged();

    // Another copy has files for this one. Whether they can be taken in now; a pause puts it off.
    bool Wake(bool isPaused);
    // Whether the window can go now; a pause puts it off.
    bool Close(bool isPaused);
    // It goes as soon as nothing waits for the user.
    void EndSession(bool isPaused);
    void PauseEnded();

private:
    void Go(TPresence where);
    void ShowAsIcon();
    bool IsStartingOrGoing() const
    {
        return m_where == TPresence::Starting || m_where == TPresence::Going;
    }

    TFrame& m_frame;
    std::function<TWayBack()> m_wayBack;
    TPresence m_where = TPresence::Starting;
    bool m_isVisible = true;
    bool m_wasPlaced = false;
    bool m_isNewIcon = false; // the window manager may show it as a window first
    bool m_isWakePending = false, m_isClosePending = false;
};

} // namespace murala
