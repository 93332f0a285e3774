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
#include <new>
#include <utility>

#include <wx/display.h>

namespace murala
{

namespace
{

// Milliseconds.
constexpr int SettleTime = 500; // until a selection or a changed setting is shown
constexpr int ScheduleInterval = 1000;
constexpr int StepPause = 1;     // in which the window answers
constexpr int MinimiseTime = 50; // until a minimised window leaves the task bar

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
        if (!m_murala.Core.Updating && !tSelectItem.IsRunning())
            PreviewChanged(false);
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
        hint.empty() ? ShowSelectionStatus() : SetStatus(hint);
    });
    Bind(wxEVT_MENU_CLOSE, [this](wxMenuEvent& event) {
        event.Skip();
        ShowSelectionStatus();
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
        if (m_murala.Preview.IsOutOfDate())
            PreviewChanged(true);
    });
    // What was not loaded while nobody saw it.
    Bind(wxEVT_ICONIZE, [this](wxIconizeEvent& event) {
        event.Skip();
        if (event.IsIconized())
            return static_cast<void>(tHideAppWindow.StartOnce(MinimiseTime));
        PreviewChanged(true);
        SendSizeEvent(wxSEND_EVENT_POST); // its borders may have come while it was an icon
    });
}

void TfMain::BindTimers()
{
    const auto bind = [this](wxTimer& timer, void (TfMain::*tick)()) {
        timer.Bind(wxEVT_TIMER, [this, tick](wxTimerEvent&) { (this->*tick)(); });
    };
    bind(tSelectItem, &TfMain::tSelectItemTimer);
    bind(tLoadPreview, &TfMain::tLoadPreviewTimer);
    bind(tPreviewUpdate, &TfMain::tPreviewUpdateTimer);
    bind(tSchedule, &TfMain::tScheduleTimer);
    bind(tPlacement, &TfMain::tPlacementTimer);
    bind(tRefreshIcons, &TfMain::tRefreshIconsTimer);
    bind(tIcons, &TfMain::tIconsTimer);
    bind(tHideAppWindow, &TfMain::tHideAppWindowTimer);
    // Everything is saved; a message that nobody answers must not hold up the end of the session.
    tEnd.Bind(wxEVT_TIMER, [](wxTimerEvent&) { std::_Exit(0); });
}

void TfMain::ReportError(const std::exception& error, TReport report)
{
    const bool isMemory = dynamic_cast<const std::bad_alloc*>(&error) != nullptr;
    m_murala.Core.Report(report, isMemory ? "There is not enough memory for this." : error.what());
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

void TfMain::tSelectItemTimer()
{
    if (!IsWindowVisible())
        return;
    if (m_murala.Core.Selection.Item() == nullptr) {
        m_murala.Preview.Release();
        return iPreview->ShowText("");
    }
    tLoadPreviewTimer();
}

void TfMain::tLoadPreviewTimer()
{
    if (!IsWindowVisible())
        return m_murala.Preview.Release();
    const std::optional<std::string> problem = m_murala.Preview.LoadSome();
    if (!problem) {
        tLoadPreview.StartOnce(StepPause);
        return;
    }
    if (problem->empty())
        tPreviewUpdateTimer();
    else
        iPreview->ShowText(ToWx(*problem));
    ShowSelectionStatus();
}

void TfMain::tPreviewUpdateTimer()
{
    if (!IsWindowVisible())
        return;
    // The picture was edited outside.
    if (m_murala.Preview.IsOutOfDate())
        return PreviewChanged(true);
    const TSize screen = m_services.Desktop.ScreenSize();
    const TBitmap picture = m_murala.Preview.Picture(iPreview->PictureWidth(screen));
    if (picture.Width() > 0)
        iPreview->ShowPicture(picture);
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
        m_isWakePending = true;
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
        PreviewChanged(false);
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

void TfMain::ShowSelectionStatus()
{
    const std::string& problem = m_murala.Core.Problem;
    SetStatus(problem.empty() ? m_murala.Preview.StatusText() : problem);
}

void TfMain::ShowLastChange()
{
    const wxString text = ToWx(LastChangeText(m_murala.Core.Settings.LastChangeDate));
    if (text == lLastChange->GetLabel())
        return;
    lLastChange->SetLabel(text);
}

void TfMain::ItemsChanged(const TItems&)
{
    UpdateHints();
    ShowSelectionStatus();
}

void TfMain::SelectionChanged()
{
    UpdateHints();
    PreviewChanged(true);
    ShowSelectionStatus();
}

void TfMain::CurrentChanged()
{
    // Painting the desktop anew may have painted over the window.
    Refresh();
    ShowLastChange();
}

void TfMain::SettingsChanged()
{
    StartSchedule();
    ShowLastChange();
}

void TfMain::PreviewChanged(bool loadPicture)
{
    if (!IsWindowVisible())
        return;
    if (loadPicture) {
        // A picture that is loaded in part keeps its file open.
        if (tLoadPreview.IsRunning())
            m_murala.Preview.Release();
        tLoadPreview.Stop();
        iPreview->ShowText(m_murala.Core.Selection.Item() != nullptr ? "Loading..." : "");
        tSelectItem.StartOnce(SettleTime);
    } else {
        tPreviewUpdate.StartOnce(SettleTime);
    }
}

void TfMain::PauseChanged()
{
    StartSchedule();
    if (m_murala.Core.Pauses.IsPaused())
        return;
    // What the change of a hidden program's wallpaper took.
    if (!m_isStarting && !IsWindowVisible())
        GiveBackFreeMemory();
    if (m_isClosePending)
        CallLater(*this, [this] { CloseWhenAsked(); });
    else if (m_isWakePending)
        CallLater(*this, [this] { WakeUp(); });
}

} // namespace murala
