// A menu as data: what it holds, whoever draws it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace murala
{

inline constexpr std::string_view SeparatorCaption = "-";

struct TMenuItem {
    std::string Name;
    std::string Caption;  // "&" before the access key, "&&" for an "&"
    bool IsPlain = false; // but for this one: "&" stands for itself, and there is no access key
    std::string Hint;
    int Action = -1; // what it runs besides; -1 for none
    bool Enabled = true;
    bool Checked = false;
    bool BarBreak = false; // begins a new column, with a bar beside the one before
    std::vector<TMenuItem> Items;

    // A wallpaper, too, may be called "-"; it has a hint.
    bool IsSeparator() const
    {
        return Caption == SeparatorCaption && Items.empty() && Hint.empty();
    }
};

// The caption as menus take it, with "&&" for an "&". Never empty: some panels have a text of their
// own for that, and the toolkit takes it for a mistake.
std::string MenuLabel(const TMenuItem& item);

// The first entry with this name, at any depth; null when there is none.
const TMenuItem* FindMenuItem(const TMenuItem& menu, std::string_view name);

} // namespace murala
