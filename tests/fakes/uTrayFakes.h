// A notification area that remembers, and refuses; and the tray's menu read as a whole.
#pragma once

#include "uTrayIcon.h"

#include <algorithm>
#include <functional>
#include <vector>

namespace murala
{

// With what is below each entry behind it.
inline TMenuEntries AllEntries(TTrayModel& model, const TMenuBelow& menu = {})
{
    TMenuEntries all;
    for (TMenuEntry& entry : model.Children(menu)) {
        const TMenuEntries below =
            entry.MenuBelow() != nullptr ? AllEntries(model, *entry.MenuBelow()) : TMenuEntries();
        all.push_back(std::move(entry));
        all.insert(all.end(), below.begin(), below.end());
    }
    return all;
}

// Null when there is none.
inline const TMenuEntry* Find(const TMenuEntries& entries, std::string_view caption)
{
    const auto found = std::ranges::find(entries, caption, &TMenuEntry::Caption);
    return found != entries.end() ? &*found : nullptr;
}

struct TFakeTrayArea : TTrayArea {
    TTrayState Place = TTrayState::Missing;
    bool Refuses = false;
    bool Draws = false; // the menu, itself
    // While a menu of its own is shown; the answer is what is chosen.
    std::function<TMenuTarget(TTrayModel& model, TPoint place)> OnMenu;

    TTrayEvents* Events = nullptr;
    bool HasIcon = false;
    int Added = 0, Menus = 0;
    TTrayLook Look;
    TMenuEntries Told; // what the desktop keeps of the menu

    // The shell is killed, and everything that it held is gone.
    void Restart() { HasIcon = false; }
    void Turn(TTrayState state)
    {
        Place = state;
        HasIcon = HasIcon && state == TTrayState::There;
        if (Events != nullptr)
            Events->TrayAreaChanged();
    }

    void Listen(TTrayEvents* events) override { Events = events; }
    TTrayState State() override { return Place; }
    bool Add(const TTrayLook& look) override
    {
        Added++;
        // A second icon of the same number is refused, as the shell does.
        if (Refuses || HasIcon || Place != TTrayState::There)
            return false;
        Look = look;
        return HasIcon = true;
    }
    bool Modify(const TTrayLook& look) override
    {
        if (HasIcon)
            Look = look;
        return HasIcon;
    }
    void Remove() override { HasIcon = false; }
    bool TellMenu(TTrayModel& model) override
    {
        if (Draws) {
            Menus++;
            Told = AllEntries(model);
        }
        return Draws;
    }
    std::optional<TMenuTarget> ShowMenu(TTrayModel& model, TPoint place) override
    {
        return OnMenu ? std::optional(OnMenu(model, place)) : std::nullopt;
    }
};

} // namespace murala
