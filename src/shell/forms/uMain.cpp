#include "uMain.h"

#include "uPath.h"
#include "uProgramEntry.h"
#include "uProgress.h"
#include "uShellIntegration.h"
#include "uText.h"
#include "uWallpaperSchedule.h"

#include "../resources/murala.xpm"

#include <algorithm>
#include <utility>

#include <wx/aboutdlg.h>
#include <wx/colordlg.h>
#include <wx/display.h>
#include <wx/filedlg.h>
#include <wx/wupdlock.h>

namespace murala
{

namespace
{

constexpr const char* PictureFilter =
    "All (*.jpg;*.jpeg;*.bmp)|*.jpg;*.jpeg;*.bmp|JPEG Image File (*.jpg)|*.jpg|"
    "JPEG Image File (*.jpeg)|*.jpeg|Bitmaps (*.bmp)|*.bmp";

// Milliseconds.
constexpr int SettleTime = 500; // until a selection or a changed setting is shown
constexpr int ScheduleInterval = 1000, RefreshInterval = 5000;

// Preview panel width and preview height in DIPs, by the setting PreviewSize.
constexpr std::pair<int, int> PreviewSizes[] = {{140, 98}, {310, 226}, {620, 458}};

struct TColumn {
    const char* Caption;
    int Width; // DIPs; 0: the control's own
};
constexpr TColumn Columns[] = {{"Title", 160}, {"Filename", 158}, {"Path", 158}, {"Category", 0}};

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

TfMain::TfMain(const TServices& services)
    : m_murala(services, *this), m_binder(*this, alMain), m_services(services),
      m_samplesFolder(JoinPath(FolderPart(services.ProgramFile), "samples"))
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
    auto* fProgress = new TfProgress(nullptr, "Starting Up...");
    m_murala.LoadSettings(DefaultPlacement(DesignSize()));
    m_murala.LoadList();
    fProgress->Destroy();
}

TfMain::~TfMain() = default;

// --- building
// -------------------------------------------------------------------------------------

void TfMain::BindWallpaperActions()
{
    const auto hasSelection = [this] { return lvWallpaper->GetSelectedItemCount() > 0; };
    const auto bind = [this](std::string_view name, std::function<void()> execute,
                             std::function<bool()> enabled = {}) {
        alMain[name].OnExecute = std::move(execute);
        alMain[name].OnEnabled = std::move(enabled);
    };
    bind("aAdd", [this] { aAddExecute(); });
    bind(
        "aRemove", [this] { m_murala.RemoveSelected(); }, hasSelection);
    bind(
        "aApply", [this] { m_murala.ApplySelected(); }, hasSelection);
    bind(
        "aApplyAndMinimize",
        [this] {
            m_murala.ApplySelected();
            Iconize();
        },
        hasSelection);
    bind(
        "aSelectAll", [this] { lvWallpaper->SelectAll(); },
        [this] { return m_murala.List.Count() > 0; });
    bind(
        "aRename", [this] { lvWallpaper->EditLabel(SelectedRow()); }, hasSelection);
    bind(
        "aNext", [this] { m_murala.Next(); }, [this] { return m_murala.List.Count() > 1; });
    bind(
        "aPrevious", [this] { m_murala.Previous(); }, [this] { return m_murala.List.Count() > 0; });
    bind(
        "aDesktopColor", [this] { aDesktopColorExecute(); }, hasSelection);
}

void TfMain::BindDisplayModeActions()
{
    static constexpr std::string_view names[] = {
        "aDisplayTiled",       "aDisplayCentered",      "aDisplayStretched",
        "aDisplayMirrorTiled", "aDisplayFitHorizontal", "aDisplayFitVertical",
    };
    const auto hasSelection = [this] { return m_murala.SelectedItem() != nullptr; };
    for (std::uint8_t mode = 0; mode < std::size(names); ++mode) {
        TAction& action = alMain[names[mode]];
        action.OnExecute = [this, mode] { m_murala.SetDisplayMode(mode); };
        action.OnEnabled = hasSelection;
        action.OnChecked = [this, mode] {
            const TMuWallpaper* item = m_murala.SelectedItem();
            return item != nullptr && item->DisplayMode == mode;
        };
    }
    alMain["aDisplayNext"].OnExecute = [this] { m_murala.StepDisplayMode(); };
    alMain["aDisplayNext"].OnEnabled = hasSelection;
}

void TfMain::BindWindowActions()
{
    static constexpr std::string_view sizes[] = {"aMiniSize", "aNormalSize", "aLargeSize"};
    for (int size = 0; size < 3; ++size) {
        alMain[sizes[size]].OnExecute = [this, size] { SetPreviewSize(size); };
        alMain[sizes[size]].OnChecked = [this, size] {
            return m_murala.Settings.PreviewSize == size;
        };
    }
    alMain["aExit"].OnExecute = [this] { Close(); };
    alMain["aAbout"].OnExecute = [this] { aAboutExecute(); };
}

void TfMain::BindSystemActions()
{
    const auto hasSelection = [this] { return m_murala.SelectedItem() != nullptr; };
    TAction& transparent = alMain["aTransparentIcons"];
    transparent.OnExecute = [this] { m_murala.ToggleTransparentIcons(); };
    transparent.OnEnabled = hasSelection;
    transparent.OnChecked = [this] {
        const TMuWallpaper* item = m_murala.SelectedItem();
        return item != nullptr && item->TransparentIcons;
    };
    alMain["aShellOpen"].OnExecute = [this] { m_murala.OpenSelected(TShellVerb::Open); };
    alMain["aShellOpen"].OnEnabled = hasSelection;
    alMain["aShellEdit"].OnExecute = [this] { m_murala.OpenSelected(TShellVerb::Edit); };
    alMain["aShellEdit"].OnEnabled = hasSelection;
    alMain["aDisplayProperties"].OnExecute = [this] { m_murala.OpenDisplayProperties(); };
    alMain["aSchedule"].OnExecute = [this] { aScheduleExecute(); };

    TAction& start = alMain["aStartAtStartup"];
    start.OnExecute = [this] { m_murala.SetStartAtStartup(!m_murala.StartAtStartup()); };
    start.OnChecked = [this] { return m_murala.StartAtStartup(); };
    TAction& apply = alMain["aApplyOnStartup"];
    apply.OnExecute = [this] { m_murala.SetApplyOnStartup(!m_murala.Settings.ApplyOnStartup); };
    apply.OnChecked = [this] { return m_murala.Settings.ApplyOnStartup; };
    apply.OnEnabled = [this] { return m_murala.StartAtStartup(); };
    TAction& next = alMain["aNextOnStartup"];
    next.OnExecute = [this] { m_murala.SetNextOnStartup(!m_murala.Settings.NextOnStartup); };
    next.OnChecked = [this] { return m_murala.Settings.NextOnStartup; };
    next.OnEnabled = [this] {
        return m_murala.StartAtStartup() && m_murala.Settings.ApplyOnStartup;
    };
}

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
                         "aApplyOnStartup", "aNextOnStartup", "-", "aSchedule", "aConfiguration"});
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
    for (const TColumn& column : Columns)
        lvWallpaper->AppendColumn(column.Caption, wxLIST_FORMAT_LEFT,
                                  column.Width > 0 ? FromDIP(column.Width) : FromDIP(120));
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
    m_pagesSize = pcEffect->CalcSizeFromPage(m_pagesSize);
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

void TfMain::BindEvents()
{
    lvWallpaper->Bind(wxEVT_LIST_ITEM_SELECTED, &TfMain::lvWallpaperSelectItem, this);
    lvWallpaper->Bind(wxEVT_LIST_ITEM_DESELECTED, &TfMain::lvWallpaperSelectItem, this);
    lvWallpaper->Bind(wxEVT_LIST_ITEM_ACTIVATED,
                      [this](wxListEvent&) { m_murala.ApplySelected(); });
    lvWallpaper->Bind(wxEVT_LIST_COL_CLICK, [this](wxListEvent& event) {
        m_murala.SortByColumn(event.GetColumn());
        lvWallpaper->ShowSortIndicator(event.GetColumn(), m_murala.IsSortAscending());
    });
    lvWallpaper->Bind(wxEVT_LIST_KEY_DOWN, &TfMain::lvWallpaperKeyDown, this);
    lvWallpaper->Bind(wxEVT_LIST_END_LABEL_EDIT, &TfMain::lvWallpaperEndLabelEdit, this);
    lvWallpaper->Bind(wxEVT_CONTEXT_MENU, &TfMain::lvWallpaperContextMenu, this);
    iPreview->Bind(wxEVT_CONTEXT_MENU, [this](wxContextMenuEvent&) {
        const std::unique_ptr<wxMenu> menu(
            m_binder.NewMenu({"aMiniSize", "aNormalSize", "aLargeSize"}));
        PopupMenu(menu.get());
    });
    BindSplitters();
    iPreview->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        if (!m_murala.Updating && !tSelectItem.IsRunning())
            PreviewChanged(false);
    });
    tSelectItem.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { tSelectItemTimer(); });
    tPreviewUpdate.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { tPreviewUpdateTimer(); });
    Bind(wxEVT_CLOSE_WINDOW, &TfMain::FormClose, this);
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        TrackPlacement();
    });
    Bind(wxEVT_MOVE, [this](wxMoveEvent& event) {
        event.Skip();
        TrackPlacement();
    });
    tSchedule.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { tScheduleTimer(); });
    tRefreshIcons.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { m_murala.RefreshTick(); });
    Bind(wxEVT_DROP_FILES, &TfMain::FormDropFiles, this);
}

// The right panel keeps its width and the preview its height when the window gets another size, as
// the user has left them.
void TfMain::BindSplitters()
{
    // The splitters tell of a new place also when they move a sash by themselves for lack of room.
    const auto isDragged = [] { return wxGetMouseState().LeftIsDown(); };
    spVertical->Bind(wxEVT_SPLITTER_SASH_POS_CHANGING, [=, this](wxSplitterEvent& event) {
        const int width = spVertical->GetClientSize().x;
        event.SetSashPosition(std::min(event.GetSashPosition(), width - m_pagesSize.x));
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
            CallAfter(&TfMain::PlaceSplitters);
        });
}

void TfMain::PlaceSplitters()
{
    spVertical->SetSashPosition(-m_rightWidth);
    spHorizontal->SetSashPosition(m_previewHeight);
}

// --- activation and close
// -------------------------------------------------------------------------

void TfMain::Activate(const std::vector<std::string>& arguments, TInstanceLink& link)
{
    link.Listen(nullptr, [this] { WakeUp(); });
    link.Unlock();
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
    // Some window managers place a window by themselves when they see it first.
    CallAfter([this, placement = m_murala.Settings.Placement] { Place(placement); });
    m_murala.Updating = false;
    lvWallpaper->SetFocus();
    lvWallpaperSelect();
    UpdateListHint();
    if (IsApplyStart(arguments))
        m_murala.SaveSettings(TSaveFlags().set(sfWallpaperCurrent).set(sfCalendarDate));
    DragAcceptFiles(true);
    tRefreshIcons.Start(RefreshInterval);
    tScheduleTimer();
    if (!arguments.empty()) {
        QueueFilesFromCommandLine(m_services.Registry, arguments);
        m_murala.ImportQueuedFiles();
    }
}

// Another copy was started: it has left its files and wants this one to be seen.
void TfMain::WakeUp()
{
    m_murala.ImportQueuedFiles();
    if (IsIconized())
        Iconize(false);
    Show();
    Raise();
}

void TfMain::Place(const TPlacement& placement)
{
    m_placement = placement;
    const wxRect frame(placement.Left, placement.Top, placement.Width, placement.Height);
    // A monitor that is gone must not take the window with it: some of its title has to be visible.
    const wxPoint title(frame.x + frame.width / 2, frame.y + FromDIP(10));
    SetSize(frame.GetSize());
    if (wxDisplay::GetFromPoint(title) != wxNOT_FOUND)
        SetPosition(frame.GetPosition());
    else
        CentreOnScreen();
}

void TfMain::TrackPlacement()
{
    if (!IsShown() || IsIconized() || IsMaximized() || IsFullScreen())
        return;
    m_placement = {GetSize().x, GetSize().y, GetPosition().x, GetPosition().y};
}

void TfMain::FormClose(wxCloseEvent& event)
{
    tSelectItem.Stop();
    tPreviewUpdate.Stop();
    tSchedule.Stop();
    tRefreshIcons.Stop();
    m_murala.Close();
    event.Skip();
}

// --- actions
// --------------------------------------------------------------------------------------

void TfMain::aAddExecute()
{
    std::string folder = m_murala.Settings.WallpaperPath;
    const bool isFirstAdd = m_murala.List.Count() == 0;
    if (isFirstAdd && FileExists(m_samplesFolder))
        folder = m_samplesFolder;
    wxFileDialog dialog(this, "Add", ToWx(folder), "", PictureFilter,
                        wxFD_OPEN | wxFD_MULTIPLE | wxFD_FILE_MUST_EXIST);
    if (dialog.ShowModal() != wxID_OK)
        return;
    wxArrayString chosen;
    dialog.GetPaths(chosen);
    std::vector<std::string> files;
    for (const wxString& path : chosen)
        files.push_back(path.utf8_string());
    if (files.empty())
        return;
    m_murala.AddFiles(files);
    m_murala.RememberFolder(FolderPart(files.front()));
}

void TfMain::aDesktopColorExecute()
{
    const TMuWallpaper* item = m_murala.SelectedItem();
    if (item == nullptr || m_murala.Updating)
        return;
    wxColourData preset;
    preset.SetChooseFull(true);
    preset.SetColour(ToWxColour(item->DesktopColor));
    wxColourDialog cdColor(this, &preset);
    if (cdColor.ShowModal() == wxID_OK)
        m_murala.SetDesktopColor(FromWxColour(cdColor.GetColourData().GetColour()));
}

void TfMain::aAboutExecute()
{
    wxAboutDialogInfo info;
    info.SetName("Murala");
    info.SetVersion("1.0.0");
    info.SetDescription("Shows your pictures on the desktop.");
    info.SetCopyright("(C) 2026 The Murala developers");
    info.SetIcon(wxICON(murala));
    wxAboutBox(info, this);
}

void TfMain::aScheduleExecute()
{
    TfSchedule dialog(this, ScheduleOf(m_murala.Settings), m_murala.Settings.LastChangeDate);
    if (dialog.ShowModal() != wxID_OK)
        return;
    m_murala.SetSchedule(dialog.Schedule());
    tScheduleTimer();
}

void TfMain::SetPreviewSize(int size)
{
    size = size >= 0 && size < static_cast<int>(std::size(PreviewSizes)) ? size : 1;
    const bool updating = m_murala.Updating;
    {
        const wxWindowUpdateLocker lock(this);
        m_murala.Updating = true;
        const wxSize preview = FromDIP(wxSize(PreviewSizes[size].first, PreviewSizes[size].second));
        m_murala.Settings.PreviewSize = size;
        // The pages below keep the width that they need.
        m_rightWidth = std::max(preview.x, m_pagesSize.x);
        m_previewHeight = preview.y;
        PlaceSplitters();
        m_murala.Updating = updating;
    }
    PreviewChanged(false);
    m_murala.SaveSettings(TSaveFlags().set(sfPreviewSize));
}

// --- events
// ---------------------------------------------------------------------------------------

void TfMain::lvWallpaperKeyDown(wxListEvent& event)
{
    if (event.GetKeyCode() == WXK_DELETE || event.GetKeyCode() == WXK_NUMPAD_DELETE)
        alMain["aRemove"].Execute();
    else if (event.GetKeyCode() == 'A' && wxGetKeyState(WXK_CONTROL))
        alMain["aSelectAll"].Execute();
    else
        event.Skip();
}

void TfMain::lvWallpaperEndLabelEdit(wxListEvent& event)
{
    const wxString title = wxString(event.GetLabel()).Trim().Trim(false);
    event.Veto(); // the row's text comes from the list
    if (!event.IsEditCancelled() && !title.empty())
        m_murala.Rename(static_cast<int>(event.GetIndex()), title.utf8_string());
}

void TfMain::lvWallpaperContextMenu(wxContextMenuEvent&)
{
    const std::unique_ptr<wxMenu> pmWallpaper(m_binder.NewMenu(
        {"aSelectAll", "-", "aChangeCategory", "-", "aAdd", "aRemove", "aRename", "-",
         "aRefreshThumbnail", "-", "&Shell>", "aShellOpen", "aShellEdit", "<", "-", "aApply"}));
    PopupMenu(pmWallpaper.get());
}

// Selecting ten thousand rows makes as many events; they are answered together.
void TfMain::lvWallpaperSelectItem(wxListEvent&)
{
    if (!std::exchange(m_isSelectionPending, true))
        CallAfter([this] { lvWallpaperSelect(); });
}

void TfMain::lvWallpaperSelect()
{
    m_isSelectionPending = false;
    ItemChanged();
    PreviewChanged(true);
    SetStatus(m_murala.StatusText());
}

void TfMain::tSelectItemTimer()
{
    if (m_murala.SelectedItem() == nullptr) {
        m_murala.ReleasePreview();
        return iPreview->ShowText("");
    }
    const TBusyScope busy(*this);
    const std::string problem = m_murala.LoadPreview();
    if (problem.empty())
        tPreviewUpdateTimer();
    else
        iPreview->ShowText(ToWx(problem));
    SetStatus(m_murala.StatusText());
}

void TfMain::tPreviewUpdateTimer()
{
    const TBitmap picture = m_murala.PreviewPicture(iPreview->PictureWidth(m_murala.ScreenSize()));
    if (picture.Width() > 0)
        iPreview->ShowPicture(picture);
}

// Restarted after each tick, so that a slow change is never entered again.
void TfMain::tScheduleTimer()
{
    tSchedule.Stop();
    m_murala.ScheduleTick();
    if (m_murala.Settings.UseSchedule)
        tSchedule.StartOnce(ScheduleInterval);
}

void TfMain::FormDropFiles(wxDropFilesEvent& event)
{
    std::vector<std::string> pictures;
    for (int i = 0; i < event.GetNumberOfFiles(); ++i)
        if (std::string file = event.GetFiles()[i].utf8_string(); HasPictureExtension(file))
            pictures.push_back(std::move(file));
    if (!pictures.empty())
        m_murala.AddFiles(pictures);
}

std::string TfMain::CellText(int row, int column) const
{
    const TMuWallpaper& item = m_murala.List.Item(row);
    switch (column) {
    case 0:
        return item.Title;
    case 1:
        return FileNamePart(item.FileName);
    case 2:
        return FolderPart(item.FileName);
    default:
        return item.Category;
    }
}

void TfMain::UpdateListHint()
{
    lvWallpaper->SetToolTip(m_murala.List.Count() > 0
                                ? "Double-Click to set wallpaper. OR Right-Click for popup menu."
                                : "Right-Click for popup menu.");
}

// --- TMainView
// ------------------------------------------------------------------------------------

void TfMain::ShowMessage(const std::string& text)
{
    wxMessageBox(ToWx(text), "Murala", wxOK | wxICON_INFORMATION, IsShown() ? this : nullptr);
}

void TfMain::SetStatus(const std::string& text)
{
    const wxString label = wxControl::EscapeMnemonics(ToWx(text));
    if (label != pStatusText->GetLabel())
        pStatusText->SetLabel(label);
}

void TfMain::ShowProgress(int position, int range)
{
    if (pbMain->IsShown() != (range > 0)) {
        pbMain->Show(range > 0);
        pbMain->GetParent()->Layout();
    }
    if (range > 0) {
        pbMain->SetRange(range);
        pbMain->SetValue(position);
        pbMain->GetParent()->Update();
    }
}

void TfMain::SetBusy(bool busy)
{
    m_busyDepth += busy ? 1 : -1;
    if (m_busyDepth == 0)
        m_busyCursor.reset();
    else if (!m_busyCursor)
        m_busyCursor.emplace();
}

int TfMain::SelectedRow()
{
    return lvWallpaper->SelectedRow();
}

std::vector<int> TfMain::SelectedRows()
{
    return lvWallpaper->SelectedRows();
}

void TfMain::SelectRow(int row)
{
    lvWallpaper->SelectOnly(row);
}

void TfMain::RowsChanged()
{
    lvWallpaper->SetItemCount(m_murala.List.Count());
    lvWallpaper->Refresh();
    UpdateListHint();
}

void TfMain::RowChanged(int row)
{
    lvWallpaper->RefreshItem(row);
}

void TfMain::ItemChanged()
{
    const TMuWallpaper* item = m_murala.SelectedItem();
    for (TSettingsPage* page : m_pages)
        page->ShowItem(item);
    alMain["aDisplayNext"].Hint =
        item != nullptr && item->DisplayMode < std::size(DisplayModeNames)
            ? FormatText("Display (%s)", {DisplayModeNames[item->DisplayMode]})
            : "Display";
}

void TfMain::PreviewChanged(bool loadPicture)
{
    if (loadPicture) {
        iPreview->ShowText(m_murala.SelectedItem() != nullptr ? "Loading..." : "");
        tSelectItem.StartOnce(SettleTime);
    } else {
        tPreviewUpdate.StartOnce(SettleTime);
    }
}

void TfMain::WallpaperChanged()
{
    lvWallpaper->Refresh();
}

bool TfMain::IsWindowVisible()
{
    return IsShown() && !IsIconized();
}

} // namespace murala
