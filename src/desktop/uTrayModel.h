// The tray's menu as its readers see it: asked for one menu at a time, when somebody wants it.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace murala
{

struct TMenuSeparator {
    friend bool operator==(const TMenuSeparator&, const TMenuSeparator&) = default;
};

struct TMenuAction {
    int Id; // in the program's list of actions
    friend bool operator==(const TMenuAction&, const TMenuAction&) = default;
};

struct TMenuWallpaper {
    std::uint64_t Id;
    friend bool operator==(const TMenuWallpaper&, const TMenuWallpaper&) = default;
};

// A menu below an entry, or the whole one.
struct TMenuBelow {
    enum TKind { Main, Wallpapers, Category } Kind = Main;
    std::string Name; // of the category
    int First = 0;    // the wallpapers before this one stand in the menus above
    friend bool operator==(const TMenuBelow&, const TMenuBelow&) = default;
};

// What an entry does. As the answer to a menu, a separator means that nothing was chosen.
using TMenuTarget = std::variant<TMenuSeparator, TMenuAction, TMenuWallpaper, TMenuBelow>;

struct TMenuEntry {
    std::string Caption; // "&" before the access key, "&&" for an "&"; empty for separators only
    TMenuTarget Target;
    bool Enabled = true;
    bool Checked = false;
    bool BarBreak = false; // begins a new column, with a bar beside the one before

    bool IsSeparator() const { return std::holds_alternative<TMenuSeparator>(Target); }
    // Null where there is no menu below.
    const TMenuBelow* MenuBelow() const { return std::get_if<TMenuBelow>(&Target); }
};

using TMenuEntries = std::vector<TMenuEntry>;

class TTrayModel
{
public:
    virtual ~TTrayModel() = default;
    // As they are now. No entries when the menu is there no more.
    virtual TMenuEntries Children(const TMenuBelow& menu) = 0;
};

} // namespace murala
