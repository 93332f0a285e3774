// The selection of a grid, as users know it from lists: a click selects one row, with Shift a range
// from the anchor, with Ctrl one row more.
#pragma once

#include <vector>

namespace murala
{

// How a click or a key changes what is selected.
enum class TSelecting {
    Only,   // without Ctrl and Shift
    Toggle, // Ctrl
    Range,  // Shift: from the anchor to here
    Focus,  // Ctrl with a key: only the focus moves
};

class TRowSelection
{
public:
    // Clears the selection.
    void Resize(int count);
    int Count() const { return static_cast<int>(m_isSelected.size()); }

    bool IsSelected(int row) const { return m_isSelected[static_cast<std::size_t>(row)]; }
    int Focused() const { return m_focused; } // -1: none
    // Ascending.
    std::vector<int> Rows() const;

    void Set(const std::vector<int>& rows, int focused);
    void Select(int row, TSelecting how);
    void SelectNone();

private:
    void Clear() { m_isSelected.assign(m_isSelected.size(), false); }

    std::vector<bool> m_isSelected;
    int m_focused = -1, m_anchor = -1;
};

} // namespace murala
