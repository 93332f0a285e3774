#include "uActionList.h"

#include <iterator>
#include <utility>

namespace murala
{

namespace
{

struct TActionRow {
    TActionId Id;
    std::string_view Name, Category, Caption, Hint, Shortcut;
    bool Checkable = false;
};

constexpr TActionRow ActionTable[] = {
    {aAdd, "aAdd", "Wallpaper", "&Add", "Add", "Ctrl+O"},
    {aRemove, "aRemove", "Wallpaper", "&Remove", "Remove", ""},
    {aApply, "aApply", "Wallpaper", "&Apply", "Set the current image as your wallpaper",
     "Ctrl+Enter"},
    {aSelectAll, "aSelectAll", "Wallpaper", "Select &All", "Select All", ""},
    {aRename, "aRename", "Wallpaper", "Re&name", "Rename", "F2"},
    {aNext, "aNext", "Wallpaper", "&Next", "Next", "Alt+Right"},
    {aPrevious, "aPrevious", "Wallpaper", "&Previous", "Previous", "Alt+Left"},
    {aDisplayTiled, "aDisplayTiled", "Wallpaper", "&Tiled", "Tiled", "", true},
    {aDisplayCentered, "aDisplayCentered", "Wallpaper", "&Centered", "Centered", "", true},
    {aDisplayStretched, "aDisplayStretched", "Wallpaper", "&Stretched", "Stretched", "", true},
    {aDisplayMirrorTiled, "aDisplayMirrorTiled", "Wallpaper", "&Mirror Tiled", "Mirror Tiled", "",
     true},
    {aDisplayFitHorizontal, "aDisplayFitHorizontal", "Wallpaper", "Fit &Horizontal", "", "", true},
    {aDisplayFitVertical, "aDisplayFitVertical", "Wallpaper", "Fit &Vertical", "", "", true},
    {aDisplayNext, "aDisplayNext", "Wallpaper", "&Display", "Display", "Ctrl+D"},
    {aRefreshThumbnail, "aRefreshThumbnail", "Wallpaper", "Refresh &Thumbnail", "", ""},
    {aShellOpen, "aShellOpen", "Wallpaper", "&Open", "", ""},
    {aShellEdit, "aShellEdit", "Wallpaper", "&Edit", "", ""},
    {aChangeCategory, "aChangeCategory", "Wallpaper", "&Change Category", "", ""},
    {aCalendar, "aCalendar", "Wallpaper", "Calendar", "Calendar", "", true},
    {aCalendarOptions, "aCalendarOptions", "Wallpaper", "Calendar Options", "Calendar Options", ""},
    {aApplyAndMinimize, "aApplyAndMinimize", "Wallpaper", "Apply && Minimize",
     "Apply and Minimize to system tray", ""},
    {aMiniSize, "aMiniSize", "View", "&Mini Size", "", "", true},
    {aNormalSize, "aNormalSize", "View", "&Normal Size", "", "", true},
    {aLargeSize, "aLargeSize", "View", "&Large Size", "", "", true},
    {aViewList, "aViewList", "View", "&List", "", "", true},
    {aViewThumbnails, "aViewThumbnails", "View", "&Thumbnails", "", "", true},
    {aNextView, "aNextView", "View", "View", "", ""},
    {aThumbSmall, "aThumbSmall", "View", "&Small", "", "", true},
    {aThumbNormal, "aThumbNormal", "View", "&Normal", "", "", true},
    {aThumbLarge, "aThumbLarge", "View", "&Large", "", "", true},
    {aExit, "aExit", "File", "E&xit", "Close the Murala program", "Ctrl+Q"},
    {aNewGradient, "aNewGradient", "File", "New &Gradient", "", ""},
    {aGetWallpaper, "aGetWallpaper", "File", "&Download Wallpaper From Web", "", ""},
    {aOptions, "aOptions", "Options", "&Show Murala", "", ""},
    {aTransparentIcons, "aTransparentIcons", "Options", "&Transparent Icons", "Transparent Icons",
     "", true},
    {aStartAtStartup, "aStartAtStartup", "Options", "&Start At Windows Startup", "", "", true},
    {aApplyOnStartup, "aApplyOnStartup", "Options", "&Apply Wallpaper On Windows Startup", "", "",
     true},
    {aNextOnStartup, "aNextOnStartup", "Options", "&Next On Windows Startup", "", "", true},
    {aConfiguration, "aConfiguration", "Options", "&Configuration", "", ""},
    {aDesktopColor, "aDesktopColor", "Options", "Select Color", "Select Desktop Background Color",
     ""},
    {aAbout, "aAbout", "Help", "&About", "", ""},
    {aMuralaHelp, "aMuralaHelp", "Help", "Murala &Help", "", "F1"},
    {aDisplayProperties, "aDisplayProperties", "Help", "Windows Display Properties", "", ""},
    {aConfigureAddOn, "aConfigureAddOn", "", "&Configure Add On", "", ""},
    {aIconBox, "aIconBox", "", "aIconBox", "", "", true},
    {aIconBoxOptions, "aIconBoxOptions", "", "aIconBoxOptions", "", ""},
    {aAddSamples, "aAddSamples", "", "Add &Sample Pictures",
     "Add the pictures that come with Murala", ""},
};

// The rows stand in the order of TActionId.
constexpr bool IsInOrder()
{
    for (int id = 0; id < ActionCount; ++id)
        if (ActionTable[id].Id != id)
            return false;
    return std::size(ActionTable) == ActionCount;
}
static_assert(IsInOrder());

} // namespace

TActionList::TActionList(std::function<void(const std::exception&)> onError)
    : m_onError(std::move(onError))
{
    for (const TActionRow& row : ActionTable) {
        TAction& action = m_actions.emplace_back();
        action.Id = row.Id;
        action.Name = row.Name;
        action.Category = row.Category;
        action.Caption = row.Caption;
        action.Hint = row.Hint;
        action.Shortcut = row.Shortcut;
        action.Checkable = row.Checkable;
    }
}

void TActionList::Execute(TActionId id) const
{
    const TAction& action = (*this)[id];
    if (IsWorking && IsWorking())
        return;
    try {
        if (BeforeExecute)
            BeforeExecute();
        if (action.Enabled())
            action.OnExecute();
    } catch (const std::exception& error) {
        m_onError(error);
    }
}

void TActionList::Request(TActionId id) const
{
    if (!IsWorking || !IsWorking())
        Post([this, id] { Execute(id); });
}

} // namespace murala
