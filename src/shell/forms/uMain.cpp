#include "uMain.h"

#include "uListColumn.h"
#include "uPath.h"
#include "uPreviewSizes.h"
#include "uProgramEntry.h"
#include "uProgress.h"
#include "uShellIntegration.h"

#include "../resources/murala.xpm"

#include <wx/display.h>
#include <wx/weakref.h>

namespace murala
{

namespace
{

// Milliseconds.
constexpr int RefreshInterval = 5000;
constexpr int SettlingTime = 300; // of a new window

constexpr int DesignWidth = 650, DesignHeight = 492;

// Centred on the primary screen, which a narrow one is filled with.
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
    : m_murala(services, *this), m_binder(*this, alMain), m_services(services), m_link(link)
{
    wxFrame::Create(nullptr, wxID_ANY, "Murala", wxDefaultPosition, wxDefaultSize,
                    wxDEFAULT_FRAME_STYLE, "TfMain");
    SetIcon(wxICON(murala));
    BindWallpaperActions();
    BindDisplayModeActions();
    BindWindowActions();
    BindSystemActions();
    BuildMenuBar();
    BuildClient();
    BindEvents();
    // The link outlives the window.
    m_link.Listen(nullptr, [self = wxWeakRef<TfMain>(this)] {
        if (self)
            self->WakeUp();
    });
    auto* fProgress = new TfProgress(nullptr, "Starting Up...");
    m_murala.LoadSettings(DefaultPlacement(DesignSize()));
    m_murala.LoadList();
    fProgress->Destroy();
}

TfMain::~TfMain() = default;

void TfMain::BuildMenuBar()
{
    auto* bar = new wxMenuBar;
    m_binder.AppendMenu(*bar, "&File", {"aNewGradient", "aGetWallpaper", "-", "aExit"});
    m_binder.AppendMenu(*bar, "&Wallpaper",
                        {"aAdd",
                         "aRemove",
                         "aRename",
                         "aSelectAll",
                         "-",
                         "aApply",
                         "aApplyAndMinimize",
                         "aNext",
                         "aPrevious",
                         "-",
                         "&Display Mode>",
                         "aDisplayTiled",
                         "aDisplayCentered",
                         "aDisplayStretched",
                         "aDisplayMirrorTiled",
                         "aDisplayFitHorizontal",
                         "aDisplayFitVertical",
                         "-",
                         "aDisplayNext",
                         "<",
                         "-",
                         "aChangeCategory",
                         "aRefreshThumbnail",
                         "&Shell>",
                         "aShellOpen",
                         "aShellEdit",
                         "<",
                         "-",
                         "aCalendar",
                         "aCalendarOptions"});
    m_binder.AppendMenu(*bar, "&View",
                        {"aViewList", "aViewThumbnails", "-", "&Thumbnail Size>", "aThumbSmall",
                         "aThumbNormal", "aThumbLarge", "<", "&Preview Size>", "aMiniSize",
                         "aNormalSize", "aLargeSize", "<"});
    m_binder.AppendMenu(*bar, "&Options",
                        {"aDesktopColor", "aTransparentIcons", "-", "aStartAtStartup",
                         "aApplyOnStartup", "aNextOnStartup", "-", "aShellIntegration", "-",
                         "aSchedule", "aConfiguration"});
    m_binder.AppendMenu(*bar, "&Help", {"aMuralaHelp", "aDisplayProperties", "-", "aAbout"});
    SetMenuBar(bar);
}

void TfMain::BuildClient()
{
    auto* client =
        new wxPanel(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL, "pMain");
    spVertical = new wxSplitterWindow(client, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                      wxSP_LIVE_UPDATE, "spVertical");
    spVertical->SetMinimumPaneSize(FromDIP(100));
    wxWindow* list = BuildListPanel(spVertical);
    wxWindow* right = BuildRightPanel(spVertical);
    spVertical->SplitVertically(list, right, -m_pagesSize.x);
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(spVertical, wxSizerFlags(1).Expand());
    rows->Add(BuildBottomPanel(client), wxSizerFlags().Expand());
    client->SetSizer(rows);
    SetMinClientSize(wxSize(m_pagesSize.x, 0) + FromDIP(wxSize(240, 320)));
}

wxWindow* TfMain::BuildListPanel(wxWindow* parent)
{
    auto* panel = new wxPanel(parent);
    tbMain = new wxToolBar(panel, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                           wxTB_FLAT | wxTB_HORIZONTAL | wxTB_NODIVIDER, "tbMain");
    m_binder.FillToolBar(*tbMain, {"aAdd", "aRemove", "-", "aApply", "aPrevious", "aNext", "-",
                                   "aDisplayNext", "aTransparentIcons", "aNextView"});
    lvWallpaper = new TMuListView(panel, "lvWallpaper");
    for (const TListColumnInfo& column : ListColumns)
        lvWallpaper->AppendColumn(ToWx(column.Caption), wxLIST_FORMAT_LEFT, FromDIP(column.Width));
    lvWallpaper->OnText = [this](int row, int column) { return CellText(row, column); };
    lvWallpaper->OnIsCurrent = [this](int row) { return row == m_murala.CurrentIndex(); };
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(tbMain, wxSizerFlags().Expand());
    rows->Add(lvWallpaper, wxSizerFlags(1).Expand());
    panel->SetSizer(rows);
    return panel;
}

wxWindow* TfMain::BuildRightPanel(wxWindow* parent)
{
    spHorizontal = new wxSplitterWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                        wxSP_LIVE_UPDATE, "spHorizontal");
    spHorizontal->SetMinimumPaneSize(FromDIP(60));
    iPreview = new TPreviewPanel(spHorizontal, "iPreview");
    iPreview->SetToolTip("Right click for menu");
    pcEffect =
        new wxNotebook(spHorizontal, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, "pcEffect");
    const auto addPage = [this](TSettingsPage* page, const char* caption) {
        pcEffect->AddPage(page, caption);
        m_pages.push_back(page);
    };
    addPage(new TDesktopPage(pcEffect, m_murala, m_binder, alMain), "&Desktop");
    addPage(new TTintPage(pcEffect, m_murala), "&Tint");
    addPage(new TEffectPage(pcEffect, m_murala), "&Effect");
    for (const TSettingsPage* page : m_pages)
        m_pagesSize.IncTo(page->GetSizer()->CalcMin());
    // Not every notebook counts its own borders.
    m_pagesSize = pcEffect->CalcSizeFromPage(m_pagesSize) + FromDIP(wxSize(12, 0));
    spHorizontal->SplitHorizontally(iPreview, pcEffect, FromDIP(PreviewSizes[1].second));
    return spHorizontal;
}

// The size of a first start: the list with its first columns beside pages that are not cut.
wxSize TfMain::DesignSize() const
{
    wxSize content = m_pagesSize;
    content.IncTo(FromDIP(wxSize(PreviewSizes[1].first, 0)));
    content += FromDIP(wxSize(340, PreviewSizes[1].second + 120));
    content.IncTo(FromDIP(wxSize(DesignWidth, DesignHeight)));
    return content;
}

wxWindow* TfMain::BuildBottomPanel(wxWindow* parent)
{
    auto* panel =
        new wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL, "pBottom");
    pbMain =
        new wxGauge(panel, wxID_ANY, 100, wxDefaultPosition, wxSize(FromDIP(120), GetCharHeight()),
                    wxGA_HORIZONTAL, wxDefaultValidator, "pbMain");
    pbMain->Hide();
    pStatusText = new wxStaticText(panel, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                                   wxST_ELLIPSIZE_MIDDLE | wxST_NO_AUTORESIZE, "pStatusText");
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(pbMain, wxSizerFlags().CenterVertical().Border());
    row->Add(pStatusText, wxSizerFlags(1).CenterVertical().Border());
    for (const char* action : {"aPrevious", "aNext", "aApply"})
        row->Add(m_binder.NewSpeedButton(panel, action, wxString("sb") + (action + 1)),
                 wxSizerFlags().CenterVertical().Border(wxTOP | wxBOTTOM | wxRIGHT));
    panel->SetSizer(row);
    return panel;
}

void TfMain::Activate(const std::vector<std::string>& arguments)
{
    m_link.Unlock();
    m_murala.LoadSettings(DefaultPlacement(DesignSize()));
    const bool wasVisible = m_murala.Settings.WindowState;
    Place(m_murala.Settings.Placement);
    lvWallpaper->SelectOnly(m_murala.CurrentIndex());
    if (IsApplyStart(arguments)) {
        if (m_murala.Settings.NextOnStartup)
            m_murala.Next(TReport::StatusLine);
        else
            m_murala.ComposeWallpaper(true, TReport::StatusLine);
    }
    if (!wasVisible)
        Iconize();
    Show();
    SetPreviewSize(m_murala.Settings.PreviewSize);
    tPlacement.StartOnce(SettlingTime);
    m_murala.Updating = false;
    CallAfter([this] { lvWallpaper->SetFocus(); });
    lvWallpaperSelect();
    UpdateListHint();
    if (IsApplyStart(arguments))
        m_murala.SaveSettings(TSaveFlags().set(sfWallpaperCurrent).set(sfCalendarDate));
    DragAcceptFiles(true);
    tRefreshIcons.Start(RefreshInterval);
    tScheduleTimer();
    QueueFilesFromCommandLine(m_services.FileQueue, arguments);
    m_murala.ImportQueuedFiles();
}

// Another copy was started: it has left its files and wants this one to be seen.
void TfMain::WakeUp()
{
    if (m_murala.Updating)
        return; // the activation takes the files in at its end
    m_murala.ImportQueuedFiles();
    if (IsIconized())
        Iconize(false);
    Show();
    Raise();
}

void TfMain::Place(const TPlacement& placement)
{
    const wxRect frame(placement.Left, placement.Top, placement.Width, placement.Height);
    // A monitor that is gone must not take the window with it: some of its title has to be visible.
    const wxPoint title(frame.x + frame.width / 2, frame.y + FromDIP(10));
    SetSize(frame.GetSize());
    if (wxDisplay::GetFromPoint(title) != wxNOT_FOUND)
        SetPosition(frame.GetPosition());
    else
        CentreOnScreen();
    m_placement = {GetSize().x, GetSize().y, GetPosition().x, GetPosition().y};
}

void TfMain::TrackPlacement()
{
    const bool isSettled = IsShown() && !tPlacement.IsRunning();
    if (!isSettled || IsIconized() || IsMaximized() || IsFullScreen())
        return;
    m_placement = {GetSize().x, GetSize().y, GetPosition().x, GetPosition().y};
}

// Some window managers put a new window where they like, whatever it asked for.
void TfMain::tPlacementTimer()
{
    if (!IsIconized() && !IsMaximized())
        SetSize(m_placement.Left, m_placement.Top, m_placement.Width, m_placement.Height);
}

void TfMain::FormClose(wxCloseEvent& event)
{
    tSelectItem.Stop();
    tPreviewUpdate.Stop();
    tSchedule.Stop();
    tRefreshIcons.Stop();
    tPlacement.Stop();
    m_murala.Close();
    event.Skip();
}

} // namespace murala
