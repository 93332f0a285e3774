#include "uRowSelection.h"

#include <algorithm>

namespace murala
{

void TRowSelection::Resize(int count)
{
    m_isSelected.assign(static_cast<std::size_t>(count), false);
    m_focused = m_anchor = -1;
}

std::vector<int> TRowSelection::Rows() const
{
    std::vector<int> rows;
    for (int row = 0; row < Count(); ++row)
        if (IsSelected(row))
            rows.push_back(row);
    return rows;
}

void TRowSelection::Set(const std::vector<int>& rows, int focused)
{
    if (focused == m_focused && rows == Rows())
        return; // the anchor stays
    Clear();
    for (const int row : rows)
        m_isSelected[static_cast<std::size_t>(row)] = true;
    m_focused = focused;
    if (m_anchor < 0 || m_anchor >= Count() || rows.size() == 1)
        m_anchor = focused;
}

void TRowSelection::SelectNone()
{
    Clear();
}

void TRowSelection::Select(int row, TSelecting how)
{
    m_focused = row;
    if (how == TSelecting::Focus)
        return;
    if (how == TSelecting::Toggle) {
        m_isSelected[static_cast<std::size_t>(row)] = !IsSelected(row);
        m_anchor = row;
        return;
    }
    Clear();
    if (how == TSelecting::Only || m_anchor < 0)
        m_anchor = row;
    for (int i = std::min(row, m_anchor); i <= std::max(row, m_anchor); ++i)
        m_isSelected[static_cast<std::size_t>(i)] = true;
}

} // namespace murala
