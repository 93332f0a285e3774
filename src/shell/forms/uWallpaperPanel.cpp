#include "uWallpaperPanel.h"

#include "uListColumn.h"

namespace murala
{

TWallpaperPanel::TWallpaperPanel(wxWindow* parent, TMurala& murala, TActionList& actions,
                                 TActionBinder& binder)
    : wxPanel(parent), m_murala(murala), m_actions(actions)
{
    BuildToolBar(binder);
    lvWallpaper = new TMuListView(this, *this, "lvWallpaper");
    lvWallpaper->Bind(wxEVT_LIST_KEY_DOWN, [this](wxListEvent& event) {
        if (event.GetKeyCode() == WXK_DELETE || event.GetKeyCode() == WXK_NUMPAD_DELETE)
            m_actions.Execute(aRemove);
        else if (event.GetKeyCode() == 'A' && wxGetKeyState(WXK_CONTROL))
            m_actions.Execute(aSelectAll);
        else
            event.Skip();
    });
    lvWallpaper->Bind(wxEVT_CONTEXT_MENU, [this, &binder](wxContextMenuEvent&) {
        const std::unique_ptr<wxMenu> pmWallpaper(binder.NewMenu(
            {aSelectAll, "-", aChangeCategory, "-", aAdd, aRemove, aRename, "-", aRefreshThumbnail,
             "-", "&Shell>", aShellOpen, aShellEdit, "<", "-", aApply}));
        const TPauseScope pause(m_murala.Core.Pauses);
        PopupMenu(pmWallpaper.get());
    });
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(tbMain, wxSizerFlags().Expand());
    rows->Add(lvWallpaper, wxSizerFlags(1).Expand());
    SetSizer(rows);
    m_murala.Core.Listeners.Add(*this);
}

void TWallpaperPanel::BuildToolBar(TActionBinder& binder)
{
    tbMain = new wxToolBar(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                           wxTB_FLAT | wxTB_HORIZONTAL | wxTB_NODIVIDER, "tbMain");
    binder.FillToolBar(*tbMain, {aAdd, aRemove, "-", aApply, aPrevious, aNext, "-", aDisplayNext,
                                 aTransparentIcons, aNextView});
}

void TWallpaperPanel::EditTitle()
{
    if (const int row = m_murala.Core.Selection.Row(); row >= 0)
        View().EditTitle(row);
}

void TWallpaperPanel::UpdateHint()
{
    View().Window().SetToolTip(Count() > 0
                                   ? "Double-Click to set wallpaper. OR Right-Click for popup menu."
                                   : "Right-Click for popup menu.");
}

void TWallpaperPanel::RowsChanged()
{
    View().ShowRows();
    if (m_murala.Desk.SortColumn())
        lvWallpaper->ShowOrder(*m_murala.Desk.SortColumn(), m_murala.Desk.IsSortAscending());
    UpdateHint();
}

void TWallpaperPanel::SelectionChanged()
{
    View().ShowSelection(m_murala.Core.Selection.Rows(), m_murala.Core.Selection.Row());
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
    m_murala.Core.Problem.clear();
    m_murala.Core.Selection.SelectRows(rows, focusedRow);
}

void TWallpaperPanel::UserActivates()
{
    m_actions.Execute(aApply);
}

void TWallpaperPanel::UserRenames(int row, const std::string& title)
{
    if (row >= 0 && row < Count())
        m_murala.Desk.Rename(m_murala.Core.List.Item(row), title);
}

void TWallpaperPanel::UserClicksHeader(TListColumn column)
{
    m_murala.Desk.SortByColumn(column);
}

} // namespace murala
