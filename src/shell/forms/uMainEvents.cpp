// Handles the main window's events.

#include "uMain.h"

#include "uCallLater.h"
#include "uDisplayMode.h"
#include "uPath.h"
#include "uPictureFormats.h"
#include "uProcessMemory.h"
#include "uStickyEdges.h"
#include "uText.h"
#include "uWindowSystem.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <utility>

#include <wx/display.h>

namespace murala
{

namespace
{

// Milliseconds.
constexpr int ScheduleInterval = 1000;

} // namespace

void TfMain::ConnectActions()
{
    alMain.BeforeExecute = [this] { m_panel->Wallpapers().View().TellSelection(); };
    const TPauses& pauses = m_murala.Core.Pauses;
    alMain.IsWorking = [&pauses] { return pauses.IsWorking(); };
    alMain.Post = [this, &pauses](std::function<void()> execute) {
        CallLater(*this, [&pauses, execute = std::move(execute), depth = pauses.Depth()] {
            if (pauses.Depth() <= depth)
                execute();
        });
    };
}

void TfMain::BindEvents()
{
    // What is not seen at first waits until the rest of the window is on the screen.
    m_panel->Preview().Bind(wxEVT_PAINT, [this](wxPaintEvent& event) {
        event.Skip();
        if (!std::exchange(m_wasPainted, true))
            CallLater(*this, [this] {
                m_binder.ShowFileIcons(*GetMenuBar());
                m_panel->BuildUnseen();
            });
    });
    BindTimers();
    Bind(wxEVT_CLOSE_WINDOW, &TfMain::FormClose, this);
    Bind(wxEVT_CHAR_HOOK, &TfMain::FormCharHook, this);
    Bind(wxEVT_DROP_FILES, &TfMain::FormDropFiles, this);
    Bind(wxEVT_MENU_HIGHLIGHT, [this](wxMenuEvent& event) {
        const std::string hint = m_binder.HintOf(event.GetMenuId());
        hint.empty() ? m_murala.Core.Status.Show() : m_murala.Core.Status.Note(hint);
    });
    Bind(wxEVT_MENU_CLOSE, [this](wxMenuEvent& event) {
        event.Skip();
        m_murala.Core.Status.Show();
    });
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        TrackPlacement();
    });
    Bind(wxEVT_MOVE, [this](wxMoveEvent& event) {
        event.Skip();
        TrackPlacement();
    });
    Bind(wxEVT_MOVING, &TfMain::FormMoving, this);
    Bind(wxEVT_DPI_CHANGED, &TfMain::FormDpiChanged, this);
    // The user comes back from another program, which may have edited the picture or brought
    // missing ones back.
    Bind(wxEVT_ACTIVATE, [this](wxActivateEvent& event) {
        event.Skip();
        if (!event.GetActive())
            return;
        m_murala.Thumbnails.ShowAnew();
        m_murala.Preview.LookAgain();
        CallLater(*this, [this] { RestoreFocus(); });
    });
    Bind(wxEVT_ICONIZE, [this](wxIconizeEvent& event) {
        event.Skip();
        m_presence.Iconized(event.IsIconized());
        if (!event.IsIconized())
            SendSizeEvent(wxSEND_EVENT_POST); // its borders may have come while it was an icon
    });
}

void TfMain::BindTimers()
{
    const auto bind = [](wxTimer& timer, std::function<void()> tick) {
        timer.Bind(wxEVT_TIMER, [tick = std::move(tick)](wxTimerEvent&) { tick(); });
    };
    bind(tPreview, [this] { m_murala.Preview.Tick(); });
    bind(tSchedule, [this] { tScheduleTimer(); });
    bind(tPlacement, [this] { m_presence.Settled(); });
    bind(tRefreshIcons, [this] { tRefreshIconsTimer(); });
    bind(tIcons, [this] { tIconsTimer(); });
    bind(tHideAppWindow, [this] { m_presence.HideIcon(); });
    // Everything is saved by then; a message that nobody answers must not hold up the end of the
    // session.
    tEnd.Bind(wxEVT_TIMER, [](wxTimerEvent&) { std::_Exit(0); });
}

// Alt with an arrow, which some controls would use themselves.
void TfMain::FormCharHook(wxKeyEvent& event)
{
    const int key = event.GetKeyCode();
    if (event.GetModifiers() != wxMOD_ALT || (key != WXK_LEFT && key != WXK_RIGHT))
        return event.Skip();
    TakeAltKey(*this);
    alMain.Request(key == WXK_RIGHT ? aNext : aPrevious);
}

// The timer is started again after each tick, so that a slow change is not entered twice.
void TfMain::tScheduleTimer()
{
    m_murala.Ticker.ScheduleTick();
    StartSchedule();
}

void TfMain::StartSchedule()
{
    if (m_murala.Core.Settings.Schedule.Use && !m_murala.Core.Pauses.IsPaused())
        tSchedule.StartOnce(ScheduleInterval);
    else
        tSchedule.Stop();
}

void TfMain::tRefreshIconsTimer()
{
    m_murala.Ticker.RefreshTick();
    TrayChanged();
    ShowLastChange();
}

void TfMain::FormDropFiles(wxDropFilesEvent& event)
{
    std::vector<std::string> pictures;
    for (int i = 0; i < event.GetNumberOfFiles(); ++i)
        if (std::string file = event.GetFiles()[i].utf8_string(); HasPictureExtension(file))
            pictures.push_back(std::move(file));
    if (pictures.empty())
        return;
    if (!m_murala.Core.Pauses.IsPaused()) {
        m_murala.Desk.AddFiles(pictures);
    } else {
        m_services.FileQueue.QueueFiles(pictures);
        m_presence.Wake(true);
    }
}

void TfMain::FormMoving(wxMoveEvent& event)
{
    const int display = wxDisplay::GetFromWindow(this);
    if (!m_murala.Core.Settings.Preferences.StickyEdges || display == wxNOT_FOUND)
        return event.Skip();
    const wxRect area = wxDisplay(static_cast<unsigned>(display)).GetClientArea();
    const wxRect window = event.GetRect();
    const TRect snapped = SnapToEdges(
        {window.x, window.y, window.x + window.width, window.y + window.height}, HiddenFrame(*this),
        {area.x, area.y, area.x + area.width, area.y + area.height}, FromDIP(StickyDistance));
    event.SetRect({snapped.Left, snapped.Top, snapped.Width(), snapped.Height()});
}

// The window came to a screen with another number of dots an inch, or that was changed. The toolkit
// changes the window's size behind this event.
void TfMain::FormDpiChanged(wxDPIChangedEvent& event)
{
    event.Skip();
    SetSmallestSize();
    m_panel->MeasureAnew(event.GetOldDPI().x, event.GetNewDPI().x);
}

void TfMain::UpdateHints()
{
    const TMuWallpaper* item = m_murala.Core.Selection.Item();
    const TDisplayModeRow* mode = item != nullptr ? FindDisplayMode(item->DisplayMode) : nullptr;
    alMain[aDisplayNext].Hint =
        mode != nullptr ? FormatText("Display (%s)", {mode->Text}) : "Display";
    alMain[aNextView].Hint = m_murala.Core.Settings.Window.ViewMode == vmThumbnails
                                 ? "View (Thumbnails)"
                                 : "View (List)";
    alMain[aDisplayProperties].Hint = m_services.Launcher.HasDisplayProperties()
                                          ? ""
                                          : "This desktop has no settings of its own for it";
    alMain[aTransparentIcons].Hint = m_services.IconView.CanBeAsked()
                                         ? "Transparent Icons"
                                         : "This desktop has no icon list that can be asked for it";
}

void TfMain::ShowLastChange()
{
    m_panel->Bottom().ShowLastChange(LastChangeText(m_murala.Core.Settings.Memory.LastChangeDate));
}

void TfMain::CurrentChanged(TCurrentChange change)
{
    if (change != TCurrentChange::Installed)
        return;
    // The desktop may have painted over the window.
    Refresh();
    ShowLastChange();
}

void TfMain::SettingsChanged()
{
    StartSchedule();
    ShowLastChange();
}

void TfMain::PauseChanged()
{
    StartSchedule();
    if (m_murala.Core.Pauses.IsPaused())
        return;
    // Changing the wallpaper of the hidden program took memory.
    if (m_presence.Where() == TPresence::Hidden || m_presence.Where() == TPresence::Icon)
        GiveBackFreeMemory();
    m_presence.PauseEnded();
}

} // namespace murala
