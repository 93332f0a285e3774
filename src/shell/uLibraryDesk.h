// Adds, removes, names and orders wallpapers.
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

    // Leaves out files that the list has already. With an empty category each item gets its file's
    // folder. Returns how many were added; the last of them is then selected.
    int AddFiles(const std::vector<std::string>& fileNames, const std::string& category = {});
    // Whether there are sample pictures to add.
    bool HasSamples() const;
    // As AddFiles. Throws EFileError when their folder cannot be read.
    int AddSamples();
    // The folder in which the Add dialog begins next time.
    void RememberFolder(const std::string& folder);
    void RemoveSelected();
    void Rename(TMuWallpaper& item, const std::string& title);
    // Makes titles anew from the file names. When the user ends it, the titles made so far stay.
    void Retitle(const TItems& items);
    // Each category once, in the order of the list.
    std::vector<std::string> Categories() const;
    void SetCategory(const TItems& items, const std::string& category);

    // Sorting by the same column again inverts the direction; another column keeps it. Does not
    // save the list.
    void SortByColumn(TListColumn column);
    // Empty while the rows stand as in the list file.
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
