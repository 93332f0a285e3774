// Which wallpapers are selected and which one is on the desktop. Both are kept by the items'
// identity, so that adding, removing and sorting change neither.
#pragma once

#include "uListeners.h"

#include <memory>
#include <unordered_set>
#include <vector>

namespace murala
{

class TSelection
{
public:
    TSelection(const TMuWallpaperList& list, TListeners& listeners);

    std::size_t Count() const { return m_selected.size(); }
    bool Contains(const TMuWallpaper& item) const { return m_selected.contains(&item); }
    // In the list's order.
    TItems Items() const;
    std::vector<int> Rows() const;
    // The item for commands that work on one: the focused item when it is selected, else the first
    // selected one, else null.
    TMuWallpaper* Item() const;
    int Row() const;
    // The row with the keyboard's focus, selected or not; -1 when there is none.
    int FocusedRow() const { return m_focused != nullptr ? m_list.IndexOf(m_focused) : -1; }

    // Selects this item alone; null clears the selection.
    void Select(const TMuWallpaper* item);
    // `focusedRow` may be -1 or a row that is not selected. A focus that moves over rows that are
    // not selected is told to nobody.
    void SelectRows(const std::vector<int>& rows, int focusedRow);
    void SelectAll();

    // The wallpaper on the desktop, null when there is none.
    TMuWallpaper* Current() const { return m_current; }
    int CurrentIndex() const;
    // Where the next and the previous wallpaper count from: Row(), else CurrentIndex().
    int RowOrCurrent() const { return Count() > 0 ? Row() : CurrentIndex(); }
    bool IsCurrent(const TMuWallpaper& item) const { return &item == m_current; }
    void SetCurrent(TMuWallpaper* item, TCurrentChange change = TCurrentChange::Chosen);

    // Drops items that have left the list, without telling anybody: the caller does that when the
    // rows are right again.
    void Forget(const std::vector<std::unique_ptr<TMuWallpaper>>& items);

private:
    const TMuWallpaperList& m_list;
    TListeners& m_listeners;
    std::unordered_set<const TMuWallpaper*> m_selected;
    const TMuWallpaper* m_focused = nullptr;
    TMuWallpaper* m_current = nullptr;
};

} // namespace murala
