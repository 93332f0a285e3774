#include "uListView.h"

#include "uCallLater.h"

#include <utility>

#include <wx/window.h>

namespace murala
{

// Selecting ten thousand rows makes ten thousand events; they are handled together, a moment later.
void TMuListView::SelectionEvent()
{
    if (m_isSelecting)
        return;
    ForgetShown();
    if (std::exchange(m_isSelectionPending, true))
        return;
    CallLater(Window(), [this] { TellSelection(); });
}

void TMuListView::TellSelection()
{
    if (!std::exchange(m_isSelectionPending, false))
        return;
    const std::vector<int> rows = ShownSelection();
    SetShown(rows);
    m_rows.UserSelects(rows, FocusedRow());
}

const std::vector<int>& TMuListView::Shown()
{
    if (!m_shown)
        m_shown = ShownSelection();
    return *m_shown;
}

TMuListView::TProgramSelects::TProgramSelects(TMuListView& view)
    : m_selecting(view.m_isSelecting, true)
{
    view.m_isSelectionPending = false;
}

} // namespace murala
