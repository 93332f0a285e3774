#include "uSelection.h"

#include "uItemsAt.h"

namespace murala
{

TSelection::TSelection(const TMuWallpaperList& list, TListeners& listeners)
    : m_list(list), m_listeners(listeners)
{
}

std::vector<int> TSelection::Rows() const
{
    std::vector<int> rows;
    rows.reserve(m_selected.size());
    for (int row = 0; row < m_list.Count() && rows.size() < m_selected.size(); ++row)
        if (Contains(m_list.Item(row)))
            rows.push_back(row);
    return rows;
}

TItems TSelection::Items() const
{
    return ItemsAt(m_list, Rows());
}

int TSelection::Row() const
{
    if (m_selected.empty())
        return -1;
    if (m_selected.contains(m_focused))
        return m_list.IndexOf(m_focused);
    int row = 0;
    while (!Contains(m_list.Item(row)))
        ++row;
    return row;
}

TMuWallpaper* TSelection::Item() const
{
    const int row = Row();
    return row >= 0 ? &m_list.Item(row) : nullptr;
}

void TSelection::Select(const TMuWallpaper* item)
{
    m_selected.clear();
    if (item != nullptr)
        m_selected.insert(item);
    m_focused = item;
    m_listeners.Tell(&TListener::SelectionChanged);
}

void TSelection::SelectRows(const std::vector<int>& rows, int focusedRow)
{
    const auto inList = [this](int row) { return row >= 0 && row < m_list.Count(); };
    const TMuWallpaper* itemBefore = Item();
    std::unordered_set<const TMuWallpaper*> selected;
    for (const int row : rows)
        if (inList(row))
            selected.insert(&m_list.Item(row));
    const bool isSame = selected == m_selected;
    m_selected = std::move(selected);
    m_focused = inList(focusedRow) ? &m_list.Item(focusedRow) : nullptr;
    if (isSame && Item() == itemBefore && !m_selected.contains(m_focused))
        return;
    m_listeners.Tell(&TListener::SelectionChanged);
}

void TSelection::SelectAll()
{
    for (int row = 0; row < m_list.Count(); ++row)
        m_selected.insert(&m_list.Item(row));
    m_listeners.Tell(&TListener::SelectionChanged);
}

int TSelection::CurrentIndex() const
{
    return m_current != nullptr ? m_list.IndexOf(m_current) : -1;
}

void TSelection::SetCurrent(TMuWallpaper* item, TCurrentChange change)
{
    m_current = item;
    m_listeners.Tell(&TListener::CurrentChanged, change);
}

void TSelection::Forget(const std::vector<std::unique_ptr<TMuWallpaper>>& items)
{
    for (const auto& item : items) {
        m_selected.erase(item.get());
        if (item.get() == m_focused)
            m_focused = nullptr;
        if (item.get() == m_current)
            m_current = nullptr;
    }
}

} // namespace murala
