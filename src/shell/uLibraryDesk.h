// Adding, removing, naming and ordering wallpapers.
#pragma once

#include "uStorage.h"

#include <optional>
#include <string>
#include <vector>

namespace murala
{

class TLibraryDesk
{
public:
    TLibraryDesk(TCore& core, TStorage& storage) : m_core(core), m_storage(storage) {}

    // Files that are in the list already are left out. An empty category: each file's folder.
    // Returns how many were added; the last of them is then the selected one.
    int AddFiles(const std::vector<std::string>& fileNames, const std::string& category = {});
    // Where the next add begins.
    void RememberFolder(const std::string& folder);
    void RemoveSelected();
    void Rename(TMuWallpaper& item, const std::string& title);
    // Titles made anew from the file names; those that are made when the user ends it stay.
    void Retitle(const TItems& items);
    // In the order in which they first occur.
    std::vector<std::string> Categories() const;
    void SetCategory(const TItems& items, const std::string& category);

    // The same column again inverts the direction; another one keeps it. Does not save.
    void SortByColumn(TListColumn column);
    // Empty: as the list file has them.
    std::optional<TListColumn> SortColumn() const { return m_sortColumn; }
    bool IsSortAscending() const { return m_sortAscending; }

private:
    bool AddFile(const std::string& fileName, const std::string& category);

    TCore& m_core;
    TStorage& m_storage;
    std::optional<TListColumn> m_sortColumn;
    bool m_sortAscending = true;
};

} // namespace murala
