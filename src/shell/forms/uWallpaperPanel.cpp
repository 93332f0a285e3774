#include "uWallpaperPanel.h"

#include "uCallLater.h"
#include "uEmptyLibrary.h"
#include "uItemWork.h"
#include "uItemsAt.h"
#include "uListColumn.h"
#include "uText.h"

#include <algorithm>

namespace murala
{

namespace
{
constexpr const char* EmptyHint = "Right-Click for popup menu.";
}

TWallpaperPanel::TWallpaperPanel(wxWindow* parent, TMurala& murala, TActionList& actions,
                                 TActionBinder& binder)
    : wxPanel(parent), m_murala(murala), m_actions(actions), m_binder(binder)
{
    BuildToolBar();
    lvWallpaper = NewListView(this, *this, "lvWallpaper");
    lvThumbnails = new TMuThumbnailView(this, *this, *this, "lvThumbnails");
    lvThumbnails->Hide();
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(tbMain, wxSizerFlags().Expand());
    rows->Add(&lvWallpaper->Window(), wxSizerFlags(1).Expand());
    rows->Add(lvThumbnails, wxSizerFlags(1).Expand());
    SetSizer(rows);
    Bind(wxEVT_CHAR_HOOK, &TWallpaperPanel::OnKey, this);
    m_subscription = m_murala.Core.Listeners.Listen(*this);
}

void TWallpaperPanel::BuildToolBar()
{
    tbMain = new wxToolBar(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                           wxTB_FLAT | wxTB_HORIZONTAL | wxTB_NODIVIDER, "tbMain");
    m_binder.FillToolBar(*tbMain, {aAdd, aRemove, "-", aApply, aPrevious, aNext, "-", aDisplayNext,
                                   aTransparentIcons, aNextView});
}

TWallpaperView& TWallpaperPanel::View()
{
    if (m_murala.Core.Settings.Window.ViewMode == vmThumbnails)
        return *lvThumbnails;
    return *lvWallpaper;
}

// The window in the place of the wallpapers.
wxWindow& TWallpaperPanel::Shown()
{
    if (Count() == 0 && pEmptyLibrary != nullptr)
        return *pEmptyLibrary;
    return View().Window();
}

void TWallpaperPanel::TakeFocus()
{
    if (&Shown() == pEmptyLibrary)
        pEmptyLibrary->TakeFocus();
    else
        View().Window().SetFocus();
}

void TWallpaperPanel::BuildEmptyLibrary()
{
    pEmptyLibrary = new TEmptyLibrary(this, m_binder, m_murala.Desk.HasSamples());
    pEmptyLibrary->Hide();
    pEmptyLibrary->SetToolTip(EmptyHint);
    pEmptyLibrary->Bind(wxEVT_CONTEXT_MENU, [this](wxContextMenuEvent& event) {
        UserWantsMenu(event.GetPosition() == wxDefaultPosition);
    });
    GetSizer()->Add(pEmptyLibrary, wxSizerFlags(1).Expand());
}

// Shows one of the windows that share the place of the wallpapers; the focus goes with it.
void TWallpaperPanel::ShowOne()
{
    if (Count() == 0 && pEmptyLibrary == nullptr)
        BuildEmptyLibrary();
    wxWindow& shown = Shown();
    bool hadFocus = false;
    for (wxWindow* each : {&lvWallpaper->Window(), static_cast<wxWindow*>(lvThumbnails),
                           static_cast<wxWindow*>(pEmptyLibrary)}) {
        if (each == nullptr || each == &shown || !each->IsShown())
            continue;
        hadFocus = hadFocus || each->IsDescendant(FindFocus());
        each->Hide();
    }
    if (!shown.Show())
        return;
    Layout();
    if (hadFocus)
        TakeFocus();
}

void TWallpaperPanel::ShowViewMode()
{
    if (View().Window().IsShown())
        return;
    RowsChanged();
    SelectionChanged();
    BringFocusIntoView();
}

void TWallpaperPanel::ShowThumbnailSize()
{
    lvThumbnails->SetSize(m_murala.Core.Settings.Window.ThumbnailSize);
}

void TWallpaperPanel::RefreshThumbnails()
{
    std::string left;
    WorkOn(m_murala.Core, m_murala.Core.Selection.Items(), "Refreshing Thumbnail",
           [&](TMuWallpaper& item) {
               if (!m_murala.Thumbnails.Refresh(item))
                   left = item.ThumbnailFileName();
           });
    View().ShowTexts();
    if (!left.empty())
        m_murala.Core.Tell(FormatText("The thumbnail is made anew, but it cannot be kept: the old "
                                      "file %s cannot be deleted.",
                                      {left}));
}

// Handles keys that work alike in both views.
void TWallpaperPanel::OnKey(wxKeyEvent& event)
{
    const bool isOfList = FindFocus() == &View().Window() && !View().IsEditing();
    const int key = event.GetKeyCode(), modifiers = event.GetModifiers();
    if (isOfList && modifiers == wxMOD_NONE && (key == WXK_DELETE || key == WXK_NUMPAD_DELETE))
        m_actions.Request(aRemove);
    else if (isOfList && modifiers == wxMOD_CONTROL && key == 'A')
        m_actions.Request(aSelectAll);
    else
        event.Skip();
}

void TWallpaperPanel::UserWantsMenu(bool byKey)
{
    const std::unique_ptr<wxMenu> pmWallpaper(m_binder.NewMenu(
        {aSelectAll, "-", aChangeCategory, "-", aAdd, aRemove, aRename, "-", aRefreshThumbnail, "-",
         "&Shell>", aShellOpen, aShellEdit, "<", "-", aApply}));
    View().TellSelection();
    const TPauseScope pause(m_murala.Core.Pauses);
    Shown().PopupMenu(pmWallpaper.get(), byKey ? KeyMenuPlace() : wxDefaultPosition);
}

// The place of a menu opened by a key: below the focused row if that is on the screen.
wxPoint TWallpaperPanel::KeyMenuPlace()
{
    const int row = m_murala.Core.Selection.Row();
    const wxPoint place = row >= 0 ? View().RowRect(row).GetLeftBottom() : wxPoint();
    return wxRect(View().Window().GetClientSize()).Contains(place) ? place : wxPoint();
}

const TBitmap* TWallpaperPanel::Thumbnail(int row)
{
    return m_murala.Thumbnails.Held(m_murala.Core.List.Item(row));
}

bool TWallpaperPanel::MakeNext(const std::vector<int>& rows)
{
    if (m_murala.Core.Pauses.IsWorking())
        return false;
    const TItems items = ItemsAt(m_murala.Core.List, rows);
    const TThumbnailStep step = m_murala.Thumbnails.MakeNext(items);
    if (step.Progress == TThumbnailProgress::Made)
        lvThumbnails->ShowPicture(
            rows[static_cast<std::size_t>(std::ranges::find(items, step.Item) - items.begin())]);
    if (const std::string notice = m_murala.Thumbnails.TakeNotice(); !notice.empty())
        m_murala.Core.Report(TReport::StatusLine, notice);
    if (step.Progress == TThumbnailProgress::Failed)
        m_murala.Core.Status.Note(step.Error);
    return step.Progress != TThumbnailProgress::Nothing;
}

void TWallpaperPanel::EditTitle()
{
    if (const int row = m_murala.Core.Selection.Row(); row >= 0)
        View().EditTitle(row);
}

void TWallpaperPanel::UpdateHint()
{
    View().Window().SetToolTip(
        Count() > 0 ? "Double-Click to set wallpaper. OR Right-Click for popup menu." : EmptyHint);
}

void TWallpaperPanel::RowsChanged()
{
    ShowOne();
    View().ShowRows();
    if (m_murala.Desk.SortColumn())
        lvWallpaper->ShowOrder(*m_murala.Desk.SortColumn(), m_murala.Desk.IsSortAscending());
    UpdateHint();
}

void TWallpaperPanel::SelectionChanged()
{
    const std::vector<int> rows = m_murala.Core.Selection.Rows();
    View().ShowSelection(rows, m_murala.Core.Selection.FocusedRow());
    // A selection made by the user does not scroll the view.
    if (!m_isUserSelecting && rows.size() == 1)
        View().BringIntoView(rows.front());
}

void TWallpaperPanel::BringFocusIntoView()
{
    const TSelection& selection = m_murala.Core.Selection;
    const int row = selection.FocusedRow() >= 0 ? selection.FocusedRow() : selection.Row();
    if (row >= 0)
        View().BringIntoView(row);
}

std::string TWallpaperPanel::Text(int row, TListColumn column) const
{
    return ColumnText(column, m_murala.Core.List.Item(row));
}

bool TWallpaperPanel::IsCurrent(int row) const
{
    return m_murala.Core.Selection.IsCurrent(m_murala.Core.List.Item(row));
}

void TWallpaperPanel::UserSelects(const std::vector<int>& rows, int focusedRow)
{
    const TValueScope selecting(m_isUserSelecting, true);
    m_murala.Core.Status.SetProblem("");
    m_murala.Core.Selection.SelectRows(rows, focusedRow);
}

void TWallpaperPanel::UserActivates()
{
    m_actions.Request(aApply);
}

void TWallpaperPanel::UserRenames(int row, const std::string& title)
{
    if (row >= 0 && row < Count())
        m_murala.Desk.Rename(m_murala.Core.List.Item(row), title);
}

void TWallpaperPanel::UserClicksHeader(TListColumn column)
{
    m_murala.Desk.SortByColumn(column);
    // Saved later: sorting ten thousand rows takes long enough.
    CallLater(*this, [this] { m_murala.Storage.SaveList(); });
}

} // namespace murala
