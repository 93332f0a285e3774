// The program's commands. Menu, tool bar, pop-ups and tray all point at these actions, so a command
// is captioned, enabled and checked in one place.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace murala
{

class TAction
{
public:
    std::string_view Name;
    std::string_view Category; // empty: in no menu of the main menu by itself
    std::string_view Caption;  // "&" before the access key
    std::string Hint;
    // A key such as "Ctrl+O", empty for none.
    std::string_view Shortcut;
    // Whether the action is checked while it is on.
    bool Checkable = false;

    // What the action does; without it the action is not offered anywhere.
    std::function<void()> OnExecute;
    // Without it the action is always enabled.
    std::function<bool()> OnEnabled;
    std::function<bool()> OnChecked;

    bool IsOffered() const { return static_cast<bool>(OnExecute); }
    bool Enabled() const { return IsOffered() && (!OnEnabled || OnEnabled()); }
    bool Checked() const { return OnChecked && OnChecked(); }
    // Does nothing while the action is disabled.
    void Execute() const
    {
        if (Enabled())
            OnExecute();
    }
};

// alMain. The table is fixed; what the actions do is bound by the main window.
class TActionList
{
public:
    TActionList();

    // The name must be one of the table's.
    TAction& operator[](std::string_view name);
    const std::vector<TAction>& All() const { return m_actions; }

private:
    std::vector<TAction> m_actions;
};

} // namespace murala
