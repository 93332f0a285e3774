// What happens in the main window, and what the program shows in it.

#include "uMain.h"

#include "uCallLater.h"
#include "uPath.h"
#include "uPreviewSizes.h"
#include "uProcessMemory.h"
#include "uSettingsPage.h"
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

void TfMain::BindEvents()
{
    iPreview->Bind(wxEVT_CONTEXT_MENU, [this](wxContextMenuEvent& event) {
        const std::unique_ptr<wxMenu> pmPreview(
            m_binder.NewMenu({aMiniSize, aNormalSize, aLargeSize}));
        const TPauseScope pause(m_murala.Core.Pauses);
        const bool byKey = event.GetPosition() == wxDefaultPosition;
        iPreview->PopupMenu(pmPreview.get(), byKey ? wxPoint() : wxDefaultPosition);
    });
    iPreview->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        if (!m_murala.Core.Updating)
            m_murala.Preview.PreviewChanged(false);
    });
    iPreview->Bind(wxEVT_PAINT, [this](wxPaintEvent& event) {
        event.Skip();
        if (!std::exchange(m_wasPainted, true))
            CallLater(*this, [this] { BuildUnseen(); });
    });
    pcEffect->Bind(wxEVT_NOTEBOOK_PAGE_CHANGED, [this](wxBookCtrlEvent& event) {
        event.Skip();
        TSettingsPage& page = *m_pages.at(static_cast<std::size_t>(event.GetSelection()));
        page.Build();
        page.Arrive();
    });
    BindSplitters();
    BindTimers();
    alMain.BeforeExecute = [this] { m_wallpapers->View().TellSelection(); };
    const TPauses& pauses = m_murala.Core.Pauses;
    alMain.IsWorking = [&pauses] { return pauses.IsWorking(); };
    alMain.Post = [this, &pauses](std::function<void()> execute) {
        CallLater(*this, [&pauses, execute = std::move(execute), depth = pauses.Depth()] {
            if (pauses.Depth() <= depth)
                execute();
        });
    };
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
    // Back from another program, in which the picture may have been edited, or with pictures that
    // were missing.
    Bind(wxEVT_ACTIVATE, [this](wxActivateEvent& event) {
        event.Skip();
        if (!event.GetActive())
            return;
        m_murala.Thumbnails.ShowAnew();
        m_murala.Preview.LookAgain();
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
    // Everything is saved; a message that nobody answers must not hold up the end of the session.
    tEnd.Bind(wxEVT_TIMER, [](wxTimerEvent&) { std::_Exit(0); });
}

// The right panel keeps its width and the preview its height when the window gets another size, as
// the user has left them.
void TfMain::BindSplitters()
{
    // The splitters tell of a new place also when they move a sash by themselves for lack of room.
    const auto isDragged = [] { return wxGetMouseState().LeftIsDown(); };
    spVertical->Bind(wxEVT_SPLITTER_SASH_POS_CHANGING, [=, this](wxSplitterEvent& event) {
        const int width = spVertical->GetClientSize().x;
        const int last = std::max(width - m_pagesSize.x, spVertical->GetMinimumPaneSize());
        event.SetSashPosition(std::min(event.GetSashPosition(), last));
        if (isDragged())
            m_rightWidth = width - event.GetSashPosition();
    });
    spHorizontal->Bind(wxEVT_SPLITTER_SASH_POS_CHANGING, [=, this](wxSplitterEvent& event) {
        if (isDragged())
            m_previewHeight = event.GetSashPosition();
    });
    for (wxSplitterWindow* splitter : {spVertical, spHorizontal})
        splitter->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
            event.Skip();
            CallLater(*this, [this] { PlaceSplitters(); });
        });
}

// The preview has its size, and the pages below it have the width that they need.
void TfMain::FitRightPanel()
{
    const auto size = std::clamp(m_murala.Core.Settings.PreviewSize, psMini, psLarge);
    const wxSize preview = FromDIP(wxSize(PreviewSizes[size].first, PreviewSizes[size].second));
    m_rightWidth = std::max(preview.x, m_pagesSize.x);
    m_previewHeight = preview.y;
    PlaceSplitters();
}

void TfMain::PlaceSplitters()
{
    spVertical->SetSashPosition(-m_rightWidth);
    spHorizontal->SetSashPosition(m_previewHeight);
}

// Keys that controls would keep for themselves.
void TfMain::FormCharHook(wxKeyEvent& event)
{
    const int key = event.GetKeyCode();
    if (event.GetModifiers() != wxMOD_ALT || (key != WXK_LEFT && key != WXK_RIGHT))
        return event.Skip();
    TakeAltKey(*this);
    alMain.Request(key == WXK_RIGHT ? aNext : aPrevious);
}

// Restarted after each tick, so that a slow change is never entered again.
void TfMain::tScheduleTimer()
{
    m_murala.Ticker.ScheduleTick();
    StartSchedule();
}

void TfMain::StartSchedule()
{
    if (m_murala.Core.Settings.UseSchedule && !m_murala.Core.Pauses.IsPaused())
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
    if (!m_murala.Core.Settings.StickyEdges || display == wxNOT_FOUND)
        return event.Skip();
    const wxRect area = wxDisplay(static_cast<unsigned>(display)).GetClientArea();
    const wxRect window = event.GetRect();
    const TRect snapped = SnapToEdges(
        {window.x, window.y, window.x + window.width, window.y + window.height}, HiddenFrame(*this),
        {area.x, area.y, area.x + area.width, area.y + area.height}, FromDIP(StickyDistance));
    event.SetRect({snapped.Left, snapped.Top, snapped.Width(), snapped.Height()});
}

// The window came to a screen with another number of dots an inch, or that was changed. The toolkit
// has measured the controls anew, and changes the window's size behind this event.
void TfMain::FormDpiChanged(wxDPIChangedEvent& event)
{
    event.Skip();
    m_rightWidth = event.GetNewDPI().x * m_rightWidth / event.GetOldDPI().x;
    m_previewHeight = event.GetNewDPI().y * m_previewHeight / event.GetOldDPI().y;
    CallLater(*this, [this] {
        MeasurePages();
        m_rightWidth = std::max(m_rightWidth, m_pagesSize.x);
        PlaceSplitters();
        m_murala.Preview.PreviewChanged(false);
    });
}

void TfMain::UpdateHints()
{
    const TMuWallpaper* item = m_murala.Core.Selection.Item();
    alMain[aDisplayNext].Hint =
        item != nullptr && item->DisplayMode < std::size(DisplayModeNames)
            ? FormatText("Display (%s)", {DisplayModeNames[item->DisplayMode]})
            : "Display";
    alMain[aNextView].Hint =
        m_murala.Core.Settings.ViewMode == vmThumbnails ? "View (Thumbnails)" : "View (List)";
    alMain[aDisplayProperties].Hint = m_services.Launcher.HasDisplayProperties()
                                          ? ""
                                          : "This desktop has no settings of its own for it";
    alMain[aTransparentIcons].Hint = m_services.IconView.CanBeAsked()
                                         ? "Transparent Icons"
                                         : "This desktop has no icon list that can be asked for it";
}

void TfMain::ShowLastChange()
{
    const wxString text = ToWx(LastChangeText(m_murala.Core.Settings.LastChangeDate));
    if (text == lLastChange->GetLabel())
        return;
    lLastChange->SetLabel(text);
}

void TfMain::CurrentChanged(TCurrentChange change)
{
    if (change != TCurrentChange::Installed)
        return;
    // Painting the desktop anew may have painted over the window.
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
    // What the change of a hidden program's wallpaper took.
    if (m_presence.Where() == TPresence::Hidden || m_presence.Where() == TPresence::Icon)
        GiveBackFreeMemory();
    m_presence.PauseEnded();
}

} // namespace murala
