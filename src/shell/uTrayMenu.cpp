#include "uTrayMenu.h"

#include "uText.h"

#include <algorithm>
#include <unordered_map>

namespace murala
{

namespace
{

// Of a wallpaper's entry; its index follows.
constexpr std::string_view NamePrefix = "CategoryMenuItem", HintPrefix = "WallpaperMenu";
constexpr std::size_t LongestMenu = 100;
// The shell lets a docked task bar overlap the screen.
constexpr int DockOverlap = 2;
constexpr int MenuOffset = 8; // to the left of the cursor

TMenuItem NewItem(std::string_view name, std::string_view caption)
{
    TMenuItem item;
    item.Name = name;
    item.Caption = caption;
    return item;
}

// Up to the next "_"; -1 for none.
int NumberAt(std::string_view text, std::size_t place)
{
    return ParseInteger(text.substr(place, text.find('_') - place)).value_or(-1);
}

// Fills one menu with wallpapers, and the menus below it that take what is too much for it.
class TFiller
{
public:
    TFiller(TMenuItem& menu, int current, int rows)
        : m_menu(&menu), m_current(current), m_rows(rows)
    {
    }

    void Add(const TMuWallpaper& wallpaper, int index)
    {
        if (++m_count > LongestMenu)
            OpenMore();
        TMenuItem& item = m_menu->Items.emplace_back();
        const std::size_t place = m_menu->Items.size() - 1;
        const std::string number = std::to_string(index);
        item.Name = std::string(NamePrefix) + number;
        item.Caption = ReplaceAll(DisplayText(wallpaper.Title), "&", "&&");
        item.Hint = std::string(HintPrefix) + number + '_' + std::to_string(place);
        item.Checked = index == m_current;
        item.BarBreak = m_rows > 0 && place > 0 && place % static_cast<std::size_t>(m_rows) == 0;
    }

private:
    void OpenMore()
    {
        m_menu->Items.push_back(NewItem("MoreSeparatorCategoryMenuItem", SeparatorCaption));
        m_menu->Items.push_back(NewItem(MoreMenuName, "More..."));
        // What is above grows no more, so that this one stays where it is.
        m_menu = &m_menu->Items.back();
        m_count = 1;
    }

    TMenuItem* m_menu;
    int m_current, m_rows;
    std::size_t m_count = 0;
};

void FillFlat(TMenuItem& menu, const TMuWallpaperList& list, int current, int rows)
{
    TFiller filler(menu, current, rows);
    for (int i = 0; i < list.Count(); ++i)
        filler.Add(list.Item(i), i);
}

// Categories in the order in which they first occur.
void FillByCategory(TMenuItem& menu, const TMuWallpaperList& list, int current, int rows)
{
    std::vector<std::vector<int>> indexes;
    std::unordered_map<std::string_view, std::size_t> categories;
    for (int i = 0; i < list.Count(); ++i) {
        const std::string& category = list.Item(i).Category;
        const auto [known, isNew] = categories.try_emplace(category, indexes.size());
        if (isNew) {
            indexes.emplace_back();
            menu.Items.push_back(NewItem("MainCategoryMenu", DisplayText(category)));
            menu.Items.back().IsPlain = true;
        }
        indexes[known->second].push_back(i);
    }
    for (std::size_t i = 0; i < indexes.size(); ++i) {
        TFiller filler(menu.Items[i], current, rows);
        for (const int index : indexes[i])
            filler.Add(list.Item(index), index);
    }
}

// Checks what leads to the first checked entry. Whether there is one.
bool CheckAncestors(TMenuItem& menu)
{
    for (TMenuItem& item : menu.Items) {
        if (item.Items.empty() ? item.Checked : CheckAncestors(item)) {
            item.Checked = true;
            return true;
        }
    }
    return false;
}

} // namespace

TMenuItem NewWallpaperMenu(const TMuWallpaperList& list, int current,
                           const TWallpaperMenuOptions& options)
{
    TMenuItem menu = NewItem("Wallpaper1", "Wallpaper");
    if (options.ByCategory)
        FillByCategory(menu, list, current, options.Rows);
    else
        FillFlat(menu, list, current, options.Rows);
    CheckAncestors(menu);
    return menu;
}

void AppendToWallpaperMenu(TMenuItem& menu, std::span<const TMenuItem> items)
{
    menu.Items.push_back(NewItem("SpacerMenuItem", SeparatorCaption));
    menu.Items.insert(menu.Items.end(), items.begin(), items.end());
}

int WallpaperIndexOf(const TMenuItem& item)
{
    const std::string_view hint = item.Hint;
    return hint.starts_with(HintPrefix) ? NumberAt(hint, HintPrefix.size()) : -1;
}

int WallpaperIndexOf(std::string_view name)
{
    return name.starts_with(NamePrefix) ? NumberAt(name, NamePrefix.size()) : -1;
}

void UpdateTrayChecks(TMenuItem& menu, int current)
{
    for (TMenuItem& item : menu.Items) {
        if (item.Action < 0)
            item.Checked = item.Items.empty() && item.Caption != SeparatorCaption && current >= 0 &&
                           WallpaperIndexOf(item) == current;
        UpdateTrayChecks(item, current);
    }
}

TTaskBarEdge TaskBarEdge(const TRect& taskBar, TSize screen)
{
    const bool isAtBottom = taskBar.Bottom == screen.Height + DockOverlap;
    const bool isAtTop = taskBar.Top == -DockOverlap;
    if (isAtBottom != isAtTop)
        return isAtBottom ? TTaskBarEdge::Bottom : TTaskBarEdge::Top;
    if (taskBar.Left == -DockOverlap)
        return TTaskBarEdge::Left;
    return taskBar.Right == screen.Width + DockOverlap ? TTaskBarEdge::Right : TTaskBarEdge::None;
}

int MenuHeight(const TMenuItem& menu, const TMenuMetrics& metrics)
{
    int height = 2 * metrics.BorderHeight;
    for (const TMenuItem& item : menu.Items)
        height += item.IsSeparator() ? metrics.SeparatorHeight : metrics.ItemHeight;
    return height;
}

TPoint MenuPlace(TPoint cursor, const std::optional<TRect>& taskBar, TSize screen, int menuHeight)
{
    const int x = cursor.X - MenuOffset;
    switch (taskBar ? TaskBarEdge(*taskBar, screen) : TTaskBarEdge::None) {
    case TTaskBarEdge::Top:
        return {x, taskBar->Bottom};
    case TTaskBarEdge::Bottom:
        return {x, taskBar->Top - menuHeight};
    default:
        return {x, cursor.Y};
    }
}

} // namespace murala
