#include "uMain.h"

#include "uCallLater.h"
#include "uDialog.h"
#include "uPlacement.h"
#include "uProgramEntry.h"
#include "uProgress.h"
#include "uShellIntegration.h"
#include "uWindowSystem.h"

#include <algorithm>
#include <utility>

#include <wx/display.h>

namespace murala
{

namespace
{

// Milliseconds.
constexpr int RefreshInterval = 5000;
constexpr int EndPatience = 1500; // at the end of the session

// Device-independent pixels.
constexpr int SmallestWidth = 420, SmallestHeight = 300;
constexpr int InvisibleBorder = 8; // the frame's width that nobody sees

// The screens' work areas, the primary one first.
std::vector<TRect> WorkAreas(TTaskBar& taskBar)
{
    std::vector<TRect> areas;
    for (unsigned i = 0; i < wxDisplay::GetCount(); ++i) {
        const wxDisplay display(i);
        const wxRect area = display.GetClientArea();
        areas.insert(display.IsPrimary() ? areas.begin() : areas.end(),
                     {area.x, area.y, area.x + area.width, area.y + area.height});
    }
    try {
        areas.front() = WithoutTaskBar(areas.front(), taskBar.GetTaskBarRect());
    } catch (const ETaskBarMissing&) {
        // There is no task bar in the way.
    }
    return areas;
}

// Centred on the primary screen; on a narrow screen as large as its work area.
TPlacement DefaultPlacement(const wxSize& size)
{
    const wxRect screen = wxDisplay().GetClientArea();
    if (wxGetDisplaySize().x < 800)
        return {screen.width, screen.height, screen.x, screen.y};
    const wxRect frame = wxRect(size).CentreIn(screen);
    return {frame.width, frame.height, frame.x, frame.y};
}

} // namespace

TfMain::TfMain(const TServices& services, TInstanceLink& link)
    : m_murala(services, *this),
      m_presence(*this,
                 [this] {
                     return TWayBack{m_murala.Tray.CanHide(), m_murala.Tray.IsAsking()};
                 }),
      alMain([this](const std::exception& error) {
          m_murala.Core.Report(TReport::MessageBox, error);
      }),
      m_binder(*this, alMain), m_services(services), m_link(link), m_way(services.Door)
{
    wxFrame::Create(nullptr, wxID_ANY, "Murala", wxDefaultPosition, wxDefaultSize,
                    wxDEFAULT_FRAME_STYLE, "TfMain");
    SetIcon(ProgramIcon());
    UseProgramIcon();
    BindWallpaperActions();
    BindItemActions();
    BindWindowActions();
    BindSystemActions();
    BindAddOnActions();
    BuildMenuBar();
    m_panel = new TMainPanel(this, m_murala, alMain, m_binder);
    SetSmallestSize();
    ConnectActions();
    BindEvents();
    m_subscription = m_murala.Core.Listeners.Listen(*this);
    m_link.Listen(nullptr, m_way->Through([this] { WakeUp(); }));
    // At once: the system does not wait for the event loop.
    m_services.SessionEnd.ListenToQuestion(m_way->AtOnce([this] { SaveForSessionEnd(); }));
    m_services.SessionEnd.Listen(GetHandle(), m_way->AtOnce([this] { EndSession(); }));
    fProgress = std::make_unique<TfProgress>("Starting Up...");
    LoadSettings();
    if (fProgress)
        fProgress->Step();
    m_murala.Storage.LoadList();
    ConnectTray();
    fProgress.reset();
}

TfMain::~TfMain()
{
    // The controls use the program, whose parts are destroyed before the window's children.
    m_panel->Destroy();
}

void TfMain::LoadSettings()
{
    m_murala.LoadSettings(DefaultPlacement(m_panel->DesignSize()));
    m_presence.WillStart(m_murala.Core.Settings.Window.IsVisible);
}

// The window may be smaller than the settings' pages: they scroll.
void TfMain::SetSmallestSize()
{
    SetMinClientSize(FromDIP(wxSize(SmallestWidth, SmallestHeight)));
}

void TfMain::BuildMenuBar()
{
    auto* bar = new wxMenuBar;
    m_binder.AppendMenu(*bar, "&File", {aNewGradient, aGetWallpaper, "-", aExit});
    m_binder.AppendMenu(*bar, "&Wallpaper",
                        {aAdd,
                         aRemove,
                         aRename,
                         aSelectAll,
                         "-",
                         aApply,
                         aApplyAndMinimize,
                         aNext,
                         aPrevious,
                         "-",
                         "&Display Mode>",
                         aDisplayTiled,
                         aDisplayCentered,
                         aDisplayStretched,
                         aDisplayMirrorTiled,
                         aDisplayFitHorizontal,
                         aDisplayFitVertical,
                         "-",
                         aDisplayNext,
                         "<",
                         "-",
                         aChangeCategory,
                         aRefreshThumbnail,
                         "&Shell>",
                         aShellOpen,
                         aShellEdit,
                         "<",
                         "-",
                         aCalendar,
                         aCalendarOptions});
    m_binder.AppendMenu(*bar, "&View",
                        {aViewList, aViewThumbnails, aNextView, "-", "Thumbnail &Size>",
                         aThumbSmall, aThumbNormal, aThumbLarge, "<", "&Preview Size>", aMiniSize,
                         aNormalSize, aLargeSize, "<"});
    m_binder.AppendMenu(*bar, "&Options",
                        {aDesktopColor, aTransparentIcons, "-", aStartAtStartup, aApplyOnStartup,
                         aNextOnStartup, "-", aOptions, aConfiguration});
    m_binder.AppendMenu(*bar, "&Help", {aMuralaHelp, aDisplayProperties, "-", aAbout});
    SetMenuBar(bar);
}

void TfMain::Activate(const std::vector<std::string>& arguments)
{
    m_link.Unlock();
    LoadSettings();
    Place(m_murala.Core.Settings.Window.Placement);
    m_murala.Core.Selection.Select(m_murala.Core.Selection.Current());
    if (IsApplyStart(arguments)) {
        if (m_murala.Core.Settings.Preferences.NextOnStartup)
            m_murala.Applier.Next(TReport::StatusLine);
        else
            m_murala.Applier.ComposeWallpaper(true, TReport::StatusLine);
    }
    m_presence.Start();
    SetPreviewSize(m_murala.Core.Settings.Window.PreviewSize);
    SetViewMode(m_murala.Core.Settings.Window.ViewMode);
    SetThumbnailSize(m_murala.Core.Settings.Window.ThumbnailSize);
    m_murala.Core.Updating = false;
    CallLater(*this, [this] { m_panel->Wallpapers().TakeFocus(); });
    UpdateHints();
    m_murala.Preview.SelectionChanged();
    ShowLastChange();
    if (IsApplyStart(arguments))
        m_murala.Storage.SaveSettings(TSaveFlags().set(sfWallpaperCurrent).set(sfCalendarDate));
    m_murala.Tray.Enable();
    AcceptFileDrops(*this);
    tRefreshIcons.Start(RefreshInterval);
    tScheduleTimer();
    // Through the door, so that a queue too large for the memory is told and the program goes on.
    m_way->Post([=, this] {
        QueueFilesFromCommandLine(m_services.FileQueue, arguments);
        m_murala.Session.ImportQueuedFiles();
    });
}

// Another copy was started: it has queued its files and wants this window to be seen.
void TfMain::WakeUp()
{
    if (!m_presence.Wake(m_murala.Core.Pauses.IsPaused()))
        return;
    m_murala.Session.ImportQueuedFiles();
    RestoreWindow();
}

void TfMain::Place(const TPlacement& placement)
{
    const TRect frame{placement.Left, placement.Top, placement.Left + placement.Width,
                      placement.Top + placement.Height};
    const TRect fitted =
        FitToScreens(frame, WorkAreas(m_services.TaskBar), FromDIP(InvisibleBorder));
    SetSize(fitted.Left, fitted.Top, fitted.Width(), fitted.Height());
    m_placement = {GetSize().x, GetSize().y, GetPosition().x, GetPosition().y};
}

void TfMain::TrackPlacement()
{
    if (m_presence.Where() != TPresence::Shown || IsIconized() || IsMaximized() || IsFullScreen())
        return;
    m_placement = {GetSize().x, GetSize().y, GetPosition().x, GetPosition().y};
}

void TfMain::FormClose(wxCloseEvent& event)
{
    // A composition or an open dialog still needs the window.
    if (!m_presence.Close(event.CanVeto() && m_murala.Core.Pauses.IsPaused()))
        return event.Veto();
    for (wxTimer* timer :
         {&tPreview, &tSchedule, &tRefreshIcons, &tIcons, &tPlacement, &tHideAppWindow})
        timer->Stop();
    m_way.reset();
    m_murala.Tray.Remove();
    m_murala.Close();
    event.Skip();
}

// The session may still go on, and the program with it.
void TfMain::SaveForSessionEnd()
{
    const TValueScope silent(m_murala.Core.IsSilent, true);
    m_murala.Storage.SaveList();
}

// The system does not wait: save everything now, then close the window. A message that nobody
// answers gets EndPatience to end.
void TfMain::EndSession()
{
    tEnd.StartOnce(EndPatience);
    m_murala.Core.IsSilent = true;
    m_murala.Close();
    m_presence.EndSession(m_murala.Core.Pauses.IsPaused());
    for (wxDialog* dialog : ModalDialogs())
        dialog->EndModal(wxID_CANCEL);
}

} // namespace murala
