#include "uActionList.h"

#include <algorithm>
#include <cassert>

namespace murala
{

namespace
{

struct TActionRow {
    std::string_view Name, Category, Caption, Hint, Shortcut;
    bool Checkable = false;
};

constexpr TActionRow ActionTable[] = {
    {"aAdd", "Wallpaper", "&Add", "Add", "Ctrl+O"},
    {"aRemove", "Wallpaper", "&Remove", "Remove", ""},
    {"aApply", "Wallpaper", "&Apply", "Set the current image as your wallpaper", "Ctrl+Enter"},
    {"aSelectAll", "Wallpaper", "Select &All", "Select All", ""},
    {"aRename", "Wallpaper", "Re&name", "Rename", "F2"},
    {"aNext", "Wallpaper", "&Next", "Next", "Alt+Right"},
    {"aPrevious", "Wallpaper", "&Previous", "Previous", "Alt+Left"},
    {"aDisplayTiled", "Wallpaper", "&Tiled", "Tiled", "", true},
    {"aDisplayCentered", "Wallpaper", "&Centered", "Centered", "", true},
    {"aDisplayStretched", "Wallpaper", "&Stretched", "Stretched", "", true},
    {"aDisplayMirrorTiled", "Wallpaper", "&Mirror Tiled", "Mirror Tiled", "", true},
    {"aDisplayFitHorizontal", "Wallpaper", "Fit &Horizontal", "", "", true},
    {"aDisplayFitVertical", "Wallpaper", "Fit &Vertical", "", "", true},
    {"aDisplayNext", "Wallpaper", "&Display", "Display", "Ctrl+D"},
    {"aRefreshThumbnail", "Wallpaper", "Refresh &Thumbnail", "", ""},
    {"aShellOpen", "Wallpaper", "&Open", "", ""},
    {"aShellEdit", "Wallpaper", "&Edit", "", ""},
    {"aChangeCategory", "Wallpaper", "&Change Category", "", ""},
    {"aCalendar", "Wallpaper", "Calendar", "Calendar", "", true},
    {"aCalendarOptions", "Wallpaper", "Calendar Options", "Calendar Options", ""},
    {"aApplyAndMinimize", "Wallpaper", "Apply && Minimize", "Apply and Minimize to system tray",
     ""},
    {"aMiniSize", "View", "&Mini Size", "", "", true},
    {"aNormalSize", "View", "&Normal Size", "", "", true},
    {"aLargeSize", "View", "&Large Size", "", "", true},
    {"aViewList", "View", "&List", "", "", true},
    {"aViewThumbnails", "View", "&Thumbnails", "", "", true},
    {"aNextView", "View", "View", "", ""},
    {"aThumbSmall", "View", "&Small", "", "", true},
    {"aThumbNormal", "View", "&Normal", "", "", true},
    {"aThumbLarge", "View", "&Large", "", "", true},
    {"aExit", "File", "E&xit", "Close the Murala program", "Ctrl+Q"},
    {"aNewGradient", "File", "New &Gradient", "", ""},
    {"aGetWallpaper", "File", "&Download Wallpaper From Web", "", ""},
    {"aOptions", "Options", "&Show Murala", "", ""},
    {"aTransparentIcons", "Options", "&Transparent Icons", "Transparent Icons", "", true},
    {"aStartAtStartup", "Options", "&Start At Windows Startup", "", "", true},
    {"aApplyOnStartup", "Options", "&Apply Wallpaper On Windows Startup", "", "", true},
    {"aNextOnStartup", "Options", "&Next On Windows Startup", "", "", true},
    {"aShellIntegration", "Options",
     "Use She&ll Integration (\"Add to Murala\" on popup menu in explorer)", "", "", true},
    {"aConfiguration", "Options", "&Configuration", "", ""},
    {"aSchedule", "Options", "&Wallpaper Schedule", "Wallpaper Schedule", ""},
    {"aDesktopColor", "Options", "Select Color", "Select Desktop Background Color", ""},
    {"aAbout", "Help", "&About", "", ""},
    {"aMuralaHelp", "Help", "Murala &Help", "", "F1"},
    {"aDisplayProperties", "Help", "Windows Display Properties", "", ""},
    {"aConfigureAddOn", "", "&Configure Add On", "", ""},
    {"aIconBox", "", "aIconBox", "", "", true},
    {"aIconBoxOptions", "", "aIconBoxOptions", "", ""},
};

} // namespace

TActionList::TActionList()
{
    for (const TActionRow& row : ActionTable) {
        TAction& action = m_actions.emplace_back();
        action.Name = row.Name;
        action.Category = row.Category;
        action.Caption = row.Caption;
        action.Hint = row.Hint;
        action.Shortcut = row.Shortcut;
        action.Checkable = row.Checkable;
    }
}

TAction& TActionList::operator[](std::string_view name)
{
    auto action = std::find_if(m_actions.begin(), m_actions.end(),
                               [&](const TAction& candidate) { return candidate.Name == name; });
    assert(action != m_actions.end());
    return *action;
}

} // namespace murala
