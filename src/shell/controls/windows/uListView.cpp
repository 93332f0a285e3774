#include "uListView.h"

#include "uListColumn.h"
#include "uTypeAhead.h"
#include "uWindowSystem.h"
#include "uWxText.h"

#include <wx/listctrl.h>
#include <wx/msw/wrapcctl.h>
#include <wx/weakref.h>
#include <wx/wupdlock.h>

#include <algorithm>
#include <iterator>
#include <optional>

namespace murala
{

namespace
{

constexpr std::size_t FewRows = 100;

class TNativeListView : public wxListView, public TMuListView
{
public:
    TNativeListView(wxWindow* parent, TRows& rows, const wxString& name);
    // The control can lose its selection, and send an event for it, after this object is gone.
    ~TNativeListView() override { SetEvtHandlerEnabled(false); }

    void ShowOrder(TListColumn column, bool ascending) override
    {
        ShowSortIndicator(column, ascending);
    }

    wxWindow& Window() override { return *this; }
    void ShowRows() override;
    void ShowTexts() override { Refresh(); }
    void ShowSelection(const std::vector<int>& rows, int focusedRow) override;
    void BringIntoView(int row) override { EnsureVisible(row); }
    void EditTitle(int row) override { EditLabel(row); }
    wxRect RowRect(int row) const override
    {
        wxRect rect;
        GetItemRect(row, rect);
        return rect;
    }
    bool IsEditing() const override { return GetEditControl() != nullptr; }

    int ShownRows() const override { return GetItemCount(); }
    wxString ShownText(int row, TListColumn column) const override
    {
        return GetItemText(row, column);
    }
    std::vector<int> ShownSelection() const override;
    int FocusedRow() const override;

private:
    wxString OnGetItemText(long row, long column) const override;
    wxItemAttr* OnGetItemAttr(long row) const override;
    bool MSWOnNotify(int id, WXLPARAM parameter, WXLPARAM* result) override;
    bool MayChangeMany(WXUINT message, WXWPARAM key, WXLPARAM place) const;
    WXLRESULT MSWWindowProc(WXUINT message, WXWPARAM wParam, WXLPARAM lParam) override;
    void BindEvents();
    void SelectOnly(const std::vector<int>& rows);
    // Sent directly to the control: through the toolkit it takes twice as long.
    void SelectRow(int row, bool select)
    {
        LVITEMW item{};
        item.stateMask = LVIS_SELECTED;
        item.state = select ? LVIS_SELECTED : 0;
        MSWDefWindowProc(LVM_SETITEMSTATE, static_cast<WXWPARAM>(row),
                         reinterpret_cast<WXLPARAM>(&item));
    }
    void SelectAllRows(bool select) { SelectRow(-1, select); }
    // The anchor: where a range begins that is selected with Shift.
    void SetAnchor(int row)
    {
        MSWDefWindowProc(LVM_SETSELECTIONMARK, 0, static_cast<WXLPARAM>(row));
    }

    TTypeAhead m_typeAhead;
    mutable wxItemAttr m_currentAttr;
};

TNativeListView::TNativeListView(wxWindow* parent, TRows& rows, const wxString& name)
    : wxListView(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                 wxLC_REPORT | wxLC_VIRTUAL | wxLC_EDIT_LABELS, wxDefaultValidator, name),
      TMuListView(rows)
{
    for (const TListColumnInfo& column : ListColumns)
        AppendColumn(ToWx(column.Caption), wxLIST_FORMAT_LEFT, FromDIP(column.Width));
    BindEvents();
    SetAccessibleName(*this, "Wallpapers");
}

void TNativeListView::BindEvents()
{
    Bind(wxEVT_LIST_ITEM_ACTIVATED, [this](wxListEvent&) { m_rows.UserActivates(); });
    Bind(wxEVT_LIST_COL_CLICK, [this](wxListEvent& event) {
        if (event.GetColumn() >= 0)
            m_rows.UserClicksHeader(static_cast<TListColumn>(event.GetColumn()));
    });
    Bind(wxEVT_CONTEXT_MENU, [this](wxContextMenuEvent& event) {
        m_rows.UserWantsMenu(event.GetPosition() == wxDefaultPosition);
    });
    Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
        const bool isSpace = event.GetKeyCode() == WXK_SPACE && !event.HasModifiers();
        if (!isSpace || m_typeAhead.IsTyping() || FocusedRow() < 0)
            return event.Skip();
        SelectAllRows(false);
        SelectRow(FocusedRow(), true);
        SetAnchor(FocusedRow());
    });
    // The control searches titles with more than one message; not all of them find anything in a
    // virtual list.
    Bind(wxEVT_CHAR, [this](wxKeyEvent& event) {
        if (!m_typeAhead.IsLetter(event))
            return event.Skip();
        if (const int row = m_typeAhead.Find(event, m_rows, FocusedRow()); row >= 0) {
            SelectAllRows(false);
            Select(row);
            Focus(row);
            SetAnchor(row);
        }
    });
    Bind(wxEVT_LIST_END_LABEL_EDIT, [this](wxListEvent& event) {
        event.Veto(); // the list gives the row's text
        const wxString title = wxString(event.GetLabel()).Trim().Trim(false);
        if (!event.IsEditCancelled() && !title.empty())
            m_rows.UserRenames(static_cast<int>(event.GetIndex()), title.utf8_string());
    });
}

int TNativeListView::FocusedRow() const
{
    return static_cast<int>(GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_FOCUSED));
}

std::vector<int> TNativeListView::ShownSelection() const
{
    std::vector<int> rows;
    rows.reserve(static_cast<std::size_t>(GetSelectedItemCount()));
    for (long row = GetFirstSelected(); row >= 0; row = GetNextSelected(row))
        rows.push_back(static_cast<int>(row));
    return rows;
}

void TNativeListView::ShowRows()
{
    const TProgramSelects selecting(*this);
    if (GetItemCount() != m_rows.Count()) {
        ForgetShown();
        SetItemCount(m_rows.Count());
    }
    Refresh();
}

// Each message costs time, and the one for "all rows" as much as thousands of others.
void TNativeListView::SelectOnly(const std::vector<int>& rows)
{
    std::vector<int> fresh, old;
    std::ranges::set_difference(rows, Shown(), std::back_inserter(fresh));
    std::ranges::set_difference(Shown(), rows, std::back_inserter(old));
    const std::size_t changes = fresh.size() + old.size();
    if (changes == 0)
        return;
    std::optional<wxWindowUpdateLocker>
        lock; // the lock itself costs as much as thousands of messages
    if (changes > FewRows)
        lock.emplace(this);
    const bool isAll = static_cast<int>(rows.size()) == m_rows.Count();
    if (isAll || old.size() > FewRows) {
        SelectAllRows(isAll);
        fresh = isAll ? std::vector<int>() : rows;
        old.clear();
    }
    for (const int row : old)
        SelectRow(row, false);
    for (const int row : fresh)
        SelectRow(row, true);
    SetShown(rows);
}

void TNativeListView::ShowSelection(const std::vector<int>& rows, int focusedRow)
{
    const TProgramSelects selecting(*this);
    SelectOnly(rows);
    if (focusedRow < 0 || focusedRow == FocusedRow())
        return;
    SetItemState(focusedRow, wxLIST_STATE_FOCUSED, wxLIST_STATE_FOCUSED);
    SetAnchor(focusedRow);
}

wxString TNativeListView::OnGetItemText(long row, long column) const
{
    // The list may have changed since ShowRows was called last.
    if (row >= m_rows.Count())
        return {};
    return ToWx(m_rows.Text(static_cast<int>(row), static_cast<TListColumn>(column)));
}

// The toolkit would send one event for each of ten thousand rows that are selected at once.
bool TNativeListView::MSWOnNotify(int id, WXLPARAM parameter, WXLPARAM* result)
{
    constexpr UINT telling = LVIS_SELECTED | LVIS_FOCUSED;
    UINT changed = 0;
    switch (reinterpret_cast<const NMHDR*>(parameter)->code) {
    case LVN_KEYDOWN:
        // The toolkit treats the space bar as Enter.
        if (reinterpret_cast<const NMLVKEYDOWN*>(parameter)->wVKey == VK_SPACE)
            return true;
        return wxListView::MSWOnNotify(id, parameter, result);
    case LVN_ITEMCHANGED: {
        const auto& change = *reinterpret_cast<const NMLISTVIEW*>(parameter);
        changed = change.uOldState ^ change.uNewState;
        break;
    }
    case LVN_ODSTATECHANGED: {
        const auto& change = *reinterpret_cast<const NMLVODSTATECHANGE*>(parameter);
        changed = change.uOldState ^ change.uNewState;
        break;
    }
    default:
        return wxListView::MSWOnNotify(id, parameter, result);
    }
    if ((changed & telling) != 0)
        SelectionEvent();
    return true;
}

// Whether the message may select or deselect many rows. No other key counts: Return starts an
// action, which must not run inside this handler.
bool TNativeListView::MayChangeMany(WXUINT message, WXWPARAM key, WXLPARAM place) const
{
    int flags = 0;
    const bool isKey = message == WM_KEYDOWN && key >= VK_PRIOR && key <= VK_DOWN;
    const bool isOnRow =
        message == WM_LBUTTONDOWN &&
        HitTest(wxPoint(static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place))),
                flags) != wxNOT_FOUND;
    return (isKey || isOnRow) &&
           (GetKeyState(VK_SHIFT) < 0 || GetSelectedItemCount() > static_cast<int>(FewRows));
}

// Without this the control repaints each of ten thousand rows, seen or not. While the mouse button
// is down it runs a message loop of its own.
WXLRESULT TNativeListView::MSWWindowProc(WXUINT message, WXWPARAM wParam, WXLPARAM lParam)
{
    if (!MayChangeMany(message, wParam, lParam))
        return wxListView::MSWWindowProc(message, wParam, lParam);
    const wxWeakRef<wxWindow> self(this);
    Freeze();
    const WXLRESULT result = wxListView::MSWWindowProc(message, wParam, lParam);
    if (self)
        self->Thaw();
    return result;
}

wxItemAttr* TNativeListView::OnGetItemAttr(long row) const
{
    if (row >= m_rows.Count() || !m_rows.IsCurrent(static_cast<int>(row)))
        return nullptr;
    m_currentAttr.SetFont(GetFont().Bold());
    return &m_currentAttr;
}

} // namespace

TMuListView* NewListView(wxWindow* parent, TRows& rows, const wxString& name)
{
    return new TNativeListView(parent, rows, name);
}

} // namespace murala
