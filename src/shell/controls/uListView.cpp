#include "uListView.h"

namespace murala
{

TMuListView::TMuListView(wxWindow* parent, const wxString& name)
    : wxListView(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                 wxLC_REPORT | wxLC_VIRTUAL | wxLC_EDIT_LABELS, wxDefaultValidator, name)
{
}

int TMuListView::SelectedRow() const
{
    const long focused = GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_FOCUSED);
    if (focused >= 0 && GetItemState(focused, wxLIST_STATE_SELECTED) != 0)
        return static_cast<int>(focused);
    return static_cast<int>(GetFirstSelected());
}

std::vector<int> TMuListView::SelectedRows() const
{
    std::vector<int> rows;
    rows.reserve(static_cast<std::size_t>(GetSelectedItemCount()));
    for (long row = GetFirstSelected(); row >= 0; row = GetNextSelected(row))
        rows.push_back(static_cast<int>(row));
    return rows;
}

void TMuListView::SelectAll()
{
    Freeze();
    for (long row = 0; row < GetItemCount(); ++row)
        Select(row);
    Thaw();
}

void TMuListView::SelectOnly(int row)
{
    for (long selected = GetFirstSelected(); selected >= 0; selected = GetNextSelected(selected))
        if (selected != row)
            Select(selected, false);
    if (row >= 0 && row < GetItemCount()) {
        Focus(row);
        Select(row);
        EnsureVisible(row);
    }
}

wxString TMuListView::OnGetItemText(long row, long column) const
{
    return OnText ? wxString::FromUTF8(OnText(static_cast<int>(row), static_cast<int>(column)))
                  : wxString();
}

wxItemAttr* TMuListView::OnGetItemAttr(long row) const
{
    if (!OnIsCurrent || !OnIsCurrent(static_cast<int>(row)))
        return nullptr;
    m_currentAttr.SetFont(GetFont().Bold());
    return &m_currentAttr;
}

} // namespace murala
