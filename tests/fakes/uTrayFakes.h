// A notification area that remembers, and refuses.
#pragma once

#include "uTrayIcon.h"

#include <functional>
#include <vector>

namespace murala
{

struct TFakeTrayArea : TTrayArea {
    TTrayState Place = TTrayState::Missing;
    bool Refuses = false;
    bool Draws = false; // the menu, itself
    // While a menu of its own is shown; the answer is the chosen entry.
    std::function<const TMenuItem*(const TMenuItem& menu, TPoint place)> OnMenu;

    TTrayEvents* Events = nullptr;
    bool HasIcon = false;
    bool IsShown = false; // the menu
    bool IsSlow = false;  // with checks
    int Added = 0, Modified = 0, Removed = 0, Menus = 0;
    TTrayLook Look;
    TMenuItem Menu;

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
        Modified++;
        if (HasIcon)
            Look = look;
        return HasIcon;
    }
    void Remove() override
    {
        Removed++;
        HasIcon = false;
    }
    void SetMenu(const TMenuItem& menu) override
    {
        Menus++;
        Menu = menu;
    }
    bool DrawsMenu() const override { return Draws; }
    bool IsMenuShown() const override { return IsShown; }
    bool IsSlowToCheck() const override { return IsSlow; }
    std::optional<const TMenuItem*> ShowMenu(const TMenuItem& menu, TPoint place) override
    {
        return OnMenu ? std::optional(OnMenu(menu, place)) : std::nullopt;
    }
};

} // namespace murala
