#include "uLibraryDesk.h"

#include "uItemWork.h"
#include "uItemsAt.h"
#include "uPath.h"
#include "uSamplePictures.h"
#include "uText.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace murala
{

namespace
{
constexpr int TellEach = 64;
}

bool TLibraryDesk::AddFile(const std::string& fileName, const std::string& category)
{
    if (m_core.List.ContainsFileName(fileName))
        return false;
    auto item = std::make_unique<TMuWallpaper>(fileName);
    item->Title = MakeTitle(fileName, m_core.Settings.Preferences.Titles);
    item->DisplayMode = dmStretched;
    item->Category =
        category.empty() ? m_core.Services.Locale.UpperCase(FolderPart(fileName)) : category;
    item->TransparentIcons = m_core.Settings.Preferences.DefaultTransparentIcons;
    m_core.List.Add(std::move(item));
    return true;
}

int TLibraryDesk::AddFiles(const std::vector<std::string>& fileNames, const std::string& category)
{
    const TPauseScope pause(m_core.Pauses);
    const int range = static_cast<int>(fileNames.size());
    int added = 0;
    {
        const TBusyScope busy(m_core.View);
        TWork work(m_core, range);
        for (int i = 0; i < range; ++i) {
            const std::string& fileName = fileNames[static_cast<std::size_t>(i)];
            const std::string text = FormatText("Loading images (%s)", {FileNamePart(fileName)});
            // Showing each file would take longer than adding it.
            if (i % TellEach == 0)
                m_core.Status.Note(text);
            if (i % TellEach == 0 && !work.Step(i, text))
                break;
            added += AddFile(fileName, category) ? 1 : 0;
        }
    }
    if (added > 0)
        m_core.Listeners.Tell(&TListener::RowsChanged);
    // Even when all files were known, this replaces "Loading images" in the status line.
    m_core.Selection.Select(added > 0 ? &m_core.List.Item(m_core.List.Count() - 1)
                                      : m_core.Selection.Item());
    if (added > 0)
        m_storage.SaveList();
    return added;
}

bool TLibraryDesk::HasSamples() const
{
    try {
        return !SamplePictures(m_core.Services).empty();
    } catch (const EFileError&) {
        return false;
    }
}

int TLibraryDesk::AddSamples()
{
    return AddFiles(SamplePictures(m_core.Services));
}

void TLibraryDesk::RememberFolder(const std::string& folder)
{
    m_core.Settings.Memory.WallpaperPath = folder;
    m_storage.SaveSettings(TSaveFlags().set(sfWallpaperPath));
}

void TLibraryDesk::RemoveSelected()
{
    std::vector<int> rows = m_core.Selection.Rows();
    // Deleting thousands of thumbnails takes a while. When the user ends it, the items that were
    // not reached stay in the list.
    rows.resize(WorkOn(m_core, ItemsAt(m_core.List, rows), "Removing", [this](TMuWallpaper& item) {
        m_core.List.FreeThumbnail(item);
        item.DeleteThumbnailFile();
    }));
    if (rows.empty())
        return;
    // The items are kept until every listener knows that they are gone.
    const auto removed = m_core.List.DeleteMany(rows);
    m_core.Selection.Forget(removed);
    m_core.Listeners.Tell(&TListener::RowsChanged);
    const int lastRemoved = rows.back() - static_cast<int>(rows.size()) + 1;
    const int row = std::min(m_core.List.Count() - 1, lastRemoved);
    m_core.Selection.Select(row >= 0 ? &m_core.List.Item(row) : nullptr);
    m_storage.SaveList();
}

void TLibraryDesk::Rename(TMuWallpaper& item, const std::string& title)
{
    std::string line = OneLine(title);
    if (line == item.Title)
        return;
    item.Title = std::move(line);
    m_core.Listeners.Tell(&TListener::ItemsChanged, TItems{&item});
    m_storage.SaveList();
}

void TLibraryDesk::Retitle(const TItems& items)
{
    {
        TWork work(m_core, static_cast<int>(items.size()));
        for (std::size_t i = 0; i < items.size(); ++i) {
            const std::string title =
                MakeTitle(items[i]->FileName(), m_core.Settings.Preferences.Titles);
            if (i % TellEach == 0 &&
                !work.Step(static_cast<int>(i),
                           FormatText("Renaming Wallpaper:%s%s", {"\n", title})))
                break;
            items[i]->Title = title;
        }
        work.Finish("Saving Wallpaper List...");
        m_storage.SaveList();
    }
    m_core.Listeners.Tell(&TListener::ItemsChanged, items);
}

std::vector<std::string> TLibraryDesk::Categories() const
{
    std::vector<std::string> categories;
    std::unordered_set<std::string_view> known;
    for (int row = 0; row < m_core.List.Count(); ++row)
        if (const std::string& category = m_core.List.Item(row).Category;
            known.insert(category).second)
            categories.push_back(category);
    return categories;
}

void TLibraryDesk::SetCategory(const TItems& items, const std::string& category)
{
    for (TMuWallpaper* item : items)
        item->Category = OneLine(category);
    m_core.Listeners.Tell(&TListener::ItemsChanged, items);
    m_storage.SaveList();
}

void TLibraryDesk::SortByColumn(TListColumn column)
{
    const TBusyScope busy(m_core.View);
    m_sortAscending = column == m_sortColumn ? !m_sortAscending : m_sortAscending;
    m_sortColumn = column;
    m_core.List.Sort(column, m_sortAscending, [this](const std::string& text) {
        return m_core.Services.Locale.SortKey(text);
    });
    m_core.Listeners.Tell(&TListener::RowsChanged);
    m_core.Listeners.Tell(&TListener::SelectionChanged);
}

} // namespace murala
