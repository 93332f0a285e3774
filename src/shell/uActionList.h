// The program's commands. Menu, tool bar, pop-ups and tray all point at these actions, so a command
// is captioned, enabled and checked in one place.
#pragma once

#include <exception>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace murala
{

enum TActionId : int {
    aAdd,
    aRemove,
    aApply,
    aSelectAll,
    aRename,
    aNext,
    aPrevious,
    aDisplayTiled,
    aDisplayCentered,
    aDisplayStretched,
    aDisplayMirrorTiled,
    aDisplayFitHorizontal,
    aDisplayFitVertical,
    aDisplayNext,
    aRefreshThumbnail,
    aShellOpen,
    aShellEdit,
    aChangeCategory,
    aCalendar,
    aCalendarOptions,
    aApplyAndMinimize,
    aMiniSize,
    aNormalSize,
    aLargeSize,
    aViewList,
    aViewThumbnails,
    aNextView,
    aThumbSmall,
    aThumbNormal,
    aThumbLarge,
    aExit,
    aNewGradient,
    aGetWallpaper,
    aOptions,
    aTransparentIcons,
    aStartAtStartup,
    aApplyOnStartup,
    aNextOnStartup,
    aConfiguration,
    aDesktopColor,
    aAbout,
    aMuralaHelp,
    aDisplayProperties,
    aConfigureAddOn,
    aIconBox,
    aIconBoxOptions,
    aAddSamples,
    ActionCount,
};

class TAction
{
public:
    TActionId Id{};
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
};

// alMain. The table is fixed; what the actions do is bound by the main window.
class TActionList
{
public:
    // `onError` is given what an action has thrown; the program goes on.
    explicit TActionList(std::function<void(const std::exception&)> onError);

    TAction& operator[](TActionId id) { return m_actions[static_cast<std::size_t>(id)]; }
    const TAction& operator[](TActionId id) const
    {
        return m_actions[static_cast<std::size_t>(id)];
    }
    // In the order of the identifiers.
    const std::vector<TAction>& All() const { return m_actions; }

    // Does nothing while the action is disabled or the program works.
    void Execute(TActionId id) const;
    // Executes the action from the event loop. For handlers of keys, and hooks, which must not be
    // entered again: an action may show dialogs. A request that comes while the program works, or
    // whose turn comes when a dialog has opened since, is dropped.
    void Request(TActionId id) const;
    // Runs before each action: views tell selections that they hold back.
    std::function<void()> BeforeExecute;
    std::function<bool()> IsWorking;
    // Runs it later.
    std::function<void(std::function<void()>)> Post;

private:
    std::function<void(const std::exception&)> m_onError;
    std::vector<TAction> m_actions;
};

} // namespace murala
