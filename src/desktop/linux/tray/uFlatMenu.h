// A menu with all that is below it as one row of entries, as small as it can be.
#pragma once

#include "uMenuItem.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace murala
{

class TFlatMenu
{
public:
    // From top to bottom, the menu itself first. Menus that lie deeper are left out.
    TFlatMenu(const TMenuItem& menu, int deepest);

    struct TEntry {
        std::uint32_t Label, Name; // where they begin in the text
        std::uint32_t End;         // behind the last entry below
        bool IsSeparator, Enabled, Checked;
    };
    std::size_t Count() const { return m_entries.size(); }
    const TEntry& operator[](std::size_t i) const { return m_entries[i]; }
    // The caption as desktops want it, in UTF-8.
    std::string_view Label(std::size_t i) const;
    std::string_view Name(std::size_t i) const;
    bool HasMenuBelow(std::size_t i) const { return m_entries[i].End > i + 1; }

    // But for whether it is enabled. Checks count: panels know an entry as one that has a box or
    // has none.
    bool LooksAs(std::size_t i, const TFlatMenu& other, std::size_t j) const;

private:
    void Append(const TMenuItem& item, int depth);

    std::string m_text;
    std::vector<TEntry> m_entries;
};

} // namespace murala
