// What happens in the main window, and what the program shows in it.

#include "uMain.h"

#include "uListColumn.h"
#include "uPath.h"
#include "uText.h"

#include <algorithm>
#include <utility>

namespace murala
{

namespace
{

// Milliseconds.
constexpr int SettleTime = 500; // until a selection or a changed setting is shown
constexpr int ScheduleInterval = 1000;

} // namespace

void TfMain::BindEvents()
{
    lvWallpaper->Bind(wxEVT_LIST_ITEM_SELECTED, &TfMain::lvWallpaperSelectItem, this);
    lvWallpaper->Bind(wxEVT_LIST_ITEM_DESELECTED, &TfMain::lvWallpaperSelectItem, this);
    lvWallpaper->Bind(wxEVT_LIST_ITEM_ACTIVATED,
                      [this](wxListEvent&) { m_murala.ApplySelected(); });
    lvWallpaper->Bind(wxEVT_LIST_COL_CLICK, [this](wxListEvent& event) {
        m_murala.SortByColumn(static_cast<TListColumn>(event.GetColumn()));
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
    tPlacement.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { tPlacementTimer(); });
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
    StartSchedule();
}

void TfMain::StartSchedule()
{
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
    return ColumnText(static_cast<TListColumn>(column), m_murala.List.Item(row));
}

void TfMain::UpdateListHint()
{
    lvWallpaper->SetToolTip(m_murala.List.Count() > 0
                                ? "Double-Click to set wallpaper. OR Right-Click for popup menu."
                                : "Right-Click for popup menu.");
}

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
    // The current row changed; and painting the desktop anew may have painted over the window.
    Refresh();
}

bool TfMain::IsWindowVisible()
{
    return IsShown() && !IsIconized();
}

} // namespace murala
