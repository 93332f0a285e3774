#include "uListView.h"

#include "uCallLater.h"

#include <utility>

#include <wx/window.h>

namespace murala
{

// Selecting ten thousand rows makes as many events; they are answered together.
void TMuListView::SelectionEvent()
{
    if (m_isSelecting || std::exchange(m_isSelectionPending, true))
        return;
    CallLater(Window(), [this] { TellSelection(); });
}

void TMuListView::TellSelection()
{
    if (std::exchange(m_isSelectionPending, false))
        m_rows.UserSelects(ShownSelection(), FocusedRow());
}

TMuListView::TProgramSelects::TProgramSelects(TMuListView& view)
    : m_selecting(view.m_isSelecting, true)
{
    view.m_isSelectionPending = false;
}

} // namespace murala
