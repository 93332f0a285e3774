// Every action of the table, pressed where it stands: in the main menu, on the tool bar, on a page,
// in the tray's menu.
#include "MainFixture.h"

#include <wx/checklst.h>
#include <wx/toolbar.h>
#include <wx/uiaction.h>

using namespace murala;

namespace
{

// What has to be there before an action can be pressed.
enum class TNeeds { Nothing, Rows, Selection };

class EveryAction;

// Types Escape into whatever has taken the focus from the window.
class TEscapes : public wxTimer
{
public:
    void Watch(TfMain* main)
    {
        m_main = main;
        Start(100);
    }
    bool HasTyped() const { return m_hasTyped; }
    void Notify() override
    {
        const bool wasUp = std::exchange(m_isDialogUp, m_main && !m_main->IsActive());
        if (wasUp && m_isDialogUp) // it has settled
            m_hasTyped = wxUIActionSimulator().Char(WXK_ESCAPE);
    }

private:
    wxWeakRef<TfMain> m_main;
    bool m_isDialogUp = false, m_hasTyped = false;
};

struct TExpected {
    TActionId Id;
    const char* Category;
    const char* Place; // "Menu/Submenu", "tool", "tray", or the name of the control
    const char* Caption;
    const char* Hint;
    TNeeds Needs;
    void (*Before)(EveryAction&);
    bool (*HasHappened)(EveryAction&);
};

class EveryAction : public TMainFixture, public testing::WithParamInterface<TExpected>
{
public:
    TMurala& Murala() { return m_main->Murala(); }
    const TMuSettings& Settings() { return Murala().Core.Settings; }
    TMuWallpaper& Item(int row) { return Murala().Core.List.Item(row); }
    TFakeServices& Services() { return m_services; }
    bool IsWindowThere() { return m_main->IsShown() && !m_main->IsIconized(); }
    bool IsShown(const char* name) { return Control<wxWindow>(name).IsShown(); }
    bool HasStarted(const std::string& what)
    {
        return std::ranges::any_of(m_services.Launcher.Started,
                                   [&](const std::string& each) { return each.starts_with(what); });
    }
    bool HasApplied(int row)
    {
        return Murala().Core.Selection.CurrentIndex() == row &&
               std::ranges::count(m_services.Desktop.Calls, "install MuralaWallpaper.bmp 0") == 1;
    }
    bool IsPreviewSize(TPreviewSize size, int height)
    {
        const int shown = Control<wxWindow>("iPreview").GetSize().y;
        return Settings().PreviewSize == size && std::abs(shown - m_main->FromDIP(height)) < 4;
    }
    bool IsEditing() { return List().IsEditing(); }
    void Execute(TActionId id) { m_main->Actions().Execute(id); }
    const wxWeakRef<TfMain>& Main() { return m_weakMain; }
    std::string ThumbnailFile() { return Item(1).ThumbnailFileName(); }
    void AwaitDialog()
    {
        m_messages.AreShown = true;
        m_escapes.Watch(m_main);
    }
    bool HasComeAndGone() { return m_escapes.HasTyped() && m_main->IsActive(); }
    void SelectAddOn(int row) { Control<wxCheckListBox>("clbAddOns").SetSelection(row); }

protected:
    EveryAction()
    {
        m_services.TrayArea.Place = TTrayState::There;
        m_services.TrayArea.Draws = true;
        m_services.IconView.HasIcons = true;
        m_folder.Write("GetWallpaper.html", "");
        std::filesystem::create_directory(NativePath(m_folder.File("help")));
        m_folder.Write("help/index.html", "");
        std::filesystem::create_directory(NativePath(m_folder.File("samples")));
    }

    void StartEmpty()
    {
        Start();
        m_weakMain = m_main;
        m_main->SetSize(m_main->FromDIP(wxSize(1000, 900)));
        m_main->Raise();
        EXPECT_TRUE(PumpUntil([this] { return m_main->IsActive(); }));
    }
    void AddThree()
    {
        Murala().Desk.AddFiles({Picture("A.bmp", 40, 30, 0), Picture("B.bmp", 40, 30, 0xFF),
                                Picture("C.bmp", 40, 30, 0xFFFFFF)});
        Murala().Core.Selection.Select(nullptr);
    }
    void ExpectOneOfEachChoice()
    {
        static constexpr std::pair<TActionId, TActionId> choices[] = {
            {aDisplayTiled, aDisplayFitVertical},
            {aMiniSize, aLargeSize},
            {aViewList, aViewThumbnails},
            {aThumbSmall, aThumbLarge},
        };
        const bool hasItem = Murala().Core.Selection.Count() > 0;
        for (const auto& [first, last] : choices) {
            int checked = 0;
            for (int id = first; id <= last; ++id)
                checked += m_main->Actions()[static_cast<TActionId>(id)].Checked() ? 1 : 0;
            EXPECT_EQ(checked, first == aDisplayTiled && !hasItem ? 0 : 1);
        }
    }

    // The item of the main menu that stands below `place` and has the action's caption.
    wxMenuItem* MenuItem(const TExpected& expected)
    {
        const wxString place(expected.Place);
        wxMenuBar& bar = *m_main->GetMenuBar();
        const int top = bar.FindMenu(place.BeforeFirst('/'));
        wxMenu* menu = top != wxNOT_FOUND ? bar.GetMenu(static_cast<std::size_t>(top)) : nullptr;
        if (const wxString name = place.AfterFirst('/'); menu != nullptr && !name.empty())
            menu = menu->FindItem(menu->FindItem(name))->GetSubMenu();
        if (menu == nullptr)
            return nullptr;
        for (wxMenuItem* item : menu->GetMenuItems())
            if (item->GetItemLabel().BeforeFirst('\t') == expected.Caption)
                return item;
        return nullptr;
    }

    // Whether it is enabled there; false when it is not there at all.
    bool IsEnabledThere(const TExpected& expected)
    {
        m_main->UpdateWindowUI(wxUPDATE_UI_RECURSE);
        const std::string place = expected.Place;
        if (place == "tool")
            return Tool(expected) != nullptr && Tool(expected)->IsEnabled();
        if (place == "tray")
            return TrayItem(expected) != nullptr && TrayItem(expected)->Enabled;
        if (wxMenuItem* item = MenuItem(expected)) {
            item->GetMenu()->UpdateUI();
            return item->IsEnabled();
        }
        return Control<wxWindow>(expected.Place).IsThisEnabled();
    }

    void Press(const TExpected& expected)
    {
        const std::string place = expected.Place;
        if (place == "tool")
            Control<wxToolBar>("tbMain").OnLeftClick(Tool(expected)->GetId(), true);
        else if (place == "tray")
            m_services.TrayArea.Events->TrayMenuChosen(std::string(TrayItem(expected)->Name));
        else if (wxMenuItem* item = MenuItem(expected))
            m_main->ProcessCommand(item->GetId());
        else
            PressControl(Control<wxWindow>(expected.Place));
    }

    static void PressControl(wxWindow& control)
    {
        auto* list = dynamic_cast<wxCheckListBox*>(&control);
        wxCommandEvent event(list != nullptr ? wxEVT_CHECKLISTBOX : wxEVT_BUTTON, control.GetId());
        event.SetEventObject(&control);
        event.SetInt(1);
        if (list != nullptr)
            list->Check(1, !list->IsChecked(1));
        control.ProcessWindowEvent(event);
    }

    wxToolBarToolBase* Tool(const TExpected& expected)
    {
        auto& bar = Control<wxToolBar>("tbMain");
        for (std::size_t i = 0; i < bar.GetToolsCount(); ++i)
            if (auto* tool = const_cast<wxToolBarToolBase*>(bar.GetToolByPos(static_cast<int>(i)));
                tool->GetLabel() == wxStripMenuCodes(expected.Caption))
                return tool;
        return nullptr;
    }
    const TMenuItem* TrayItem(const TExpected& expected)
    {
        Murala().Tray.RefreshMenu();
        for (const TMenuItem& item : m_services.TrayArea.Menu.Items)
            if (item.Caption == expected.Caption)
                return &item;
        return nullptr;
    }

    wxWeakRef<TfMain> m_weakMain;
    TEscapes m_escapes;
};

constexpr auto None = +[](EveryAction&) {};

template<TActionId Id, TDisplayMode Mode>
constexpr TExpected DisplayMode(const char* caption, const char* hint)
{
    return {Id,
            "Wallpaper",
            "Wallpaper/Display Mode",
            caption,
            hint,
            TNeeds::Selection,
            [](EveryAction& t) { t.Item(1).DisplayMode = Mode == dmTiled ? dmCentered : dmTiled; },
            [](EveryAction& t) {
                return t.Item(1).DisplayMode == Mode && t.Item(0).DisplayMode == dmStretched;
            }};
}

template<TActionId Id, TPreviewSize Size, int Height>
constexpr TExpected PreviewSize(const char* caption)
{
    return {Id,
            "View",
            "View/Preview Size",
            caption,
            "",
            TNeeds::Nothing,
            [](EveryAction& t) { t.Execute(Size == psMini ? aLargeSize : aMiniSize); },
            [](EveryAction& t) { return t.IsPreviewSize(Size, Height); }};
}

template<TActionId Id, TThumbnailSize Size>
constexpr TExpected ThumbnailSize(const char* caption)
{
    return {Id,
            "View",
            "View/Thumbnail Size",
            caption,
            "",
            TNeeds::Nothing,
            [](EveryAction& t) { t.Execute(Size == tsSmall ? aThumbLarge : aThumbSmall); },
            [](EveryAction& t) { return t.Settings().ThumbnailSize == Size; }};
}

constexpr auto Waits = +[](EveryAction& t) { t.AwaitDialog(); };
constexpr auto Ended = +[](EveryAction& t) { return t.HasComeAndGone(); };

const TExpected Expectations[] = {
    {aAdd, "Wallpaper", "Wallpaper", "&Add", "Add", TNeeds::Nothing, Waits, Ended},
    {aRemove, "Wallpaper", "Wallpaper", "&Remove", "Remove", TNeeds::Selection, None,
     [](EveryAction& t) { return t.Murala().Core.List.Count() == 2 && t.Item(1).Title == "C"; }},
    {aApply, "Wallpaper", "sbApply", "&Apply", "Set the current image as your wallpaper",
     TNeeds::Selection, None, [](EveryAction& t) { return t.HasApplied(1); }},
    {aSelectAll, "Wallpaper", "Wallpaper", "Select &All", "Select All", TNeeds::Rows, None,
     [](EveryAction& t) { return t.Murala().Core.Selection.Count() == 3; }},
    {aRename, "Wallpaper", "Wallpaper", "Re&name", "Rename", TNeeds::Selection, None,
     [](EveryAction& t) { return t.IsEditing(); }},
    {aNext, "Wallpaper", "tool", "&Next", "Next", TNeeds::Rows, None,
     [](EveryAction& t) { return t.HasApplied(2); }},
    {aPrevious, "Wallpaper", "sbPrevious", "&Previous", "Previous", TNeeds::Rows, None,
     [](EveryAction& t) { return t.HasApplied(0); }},
    DisplayMode<aDisplayTiled, dmTiled>("&Tiled", "Tiled"),
    DisplayMode<aDisplayCentered, dmCentered>("&Centered", "Centered"),
    DisplayMode<aDisplayStretched, dmStretched>("&Stretched", "Stretched"),
    DisplayMode<aDisplayMirrorTiled, dmMirrorTiled>("&Mirror Tiled", "Mirror Tiled"),
    DisplayMode<aDisplayFitHorizontal, dmFitHorizontally>("Fit &Horizontal", ""),
    DisplayMode<aDisplayFitVertical, dmFitVertically>("Fit &Vertical", ""),
    {aDisplayNext, "Wallpaper", "tool", "&Display", "Display (Stretched)", TNeeds::Selection, None,
     [](EveryAction& t) {
         return t.Item(1).DisplayMode == dmMirrorTiled && t.Item(0).DisplayMode == dmStretched;
     }},
    {aRefreshThumbnail, "Wallpaper", "Wallpaper", "Refresh &Thumbnail", "", TNeeds::Selection,
     [](EveryAction& t) { t.Murala().Thumbnails.GetThumbnail(t.Item(1)); },
     [](EveryAction& t) { return !t.Item(1).Thumbnail && !FileExists(t.ThumbnailFile()); }},
    {aShellOpen, "Wallpaper", "Wallpaper/Shell", "&Open", "", TNeeds::Selection, None,
     [](EveryAction& t) {
         return t.HasStarted("B.bmp") && t.Services().Launcher.Verb == TShellVerb::Open;
     }},
    {aShellEdit, "Wallpaper", "Wallpaper/Shell", "&Edit", "", TNeeds::Selection, None,
     [](EveryAction& t) {
         return t.HasStarted("B.bmp") && t.Services().Launcher.Verb == TShellVerb::Edit;
     }},
    {aChangeCategory, "Wallpaper", "Wallpaper", "&Change Category", "", TNeeds::Selection, Waits,
     Ended},
    {aCalendar, "Wallpaper", "Wallpaper", "Calendar", "Calendar", TNeeds::Nothing, None,
     [](EveryAction& t) { return t.Settings().UseCalendar; }},
    {aCalendarOptions, "Wallpaper", "Wallpaper", "Calendar Options", "Calendar Options",
     TNeeds::Nothing, Waits, Ended},
    {aApplyAndMinimize, "Wallpaper", "Wallpaper", "Apply && Minimize",
     "Apply and Minimize to system tray", TNeeds::Selection, None,
     [](EveryAction& t) { return t.HasApplied(1) && !t.IsWindowThere(); }},
    PreviewSize<aMiniSize, psMini, 98>("&Mini Size"),
    PreviewSize<aNormalSize, psNormal, 226>("&Normal Size"),
    PreviewSize<aLargeSize, psLarge, 458>("&Large Size"),
    {aViewList, "View", "View", "&List", "", TNeeds::Nothing,
     [](EveryAction& t) { t.Execute(aViewThumbnails); },
     [](EveryAction& t) { return t.IsShown("lvWallpaper") && !t.IsShown("lvThumbnails"); }},
    {aViewThumbnails, "View", "View", "&Thumbnails", "", TNeeds::Nothing, None,
     [](EveryAction& t) { return t.IsShown("lvThumbnails") && !t.IsShown("lvWallpaper"); }},
    {aNextView, "View", "tool", "View", "View (List)", TNeeds::Nothing, None,
     [](EveryAction& t) { return t.IsShown("lvThumbnails"); }},
    ThumbnailSize<aThumbSmall, tsSmall>("&Small"),
    ThumbnailSize<aThumbNormal, tsNormal>("&Normal"),
    ThumbnailSize<aThumbLarge, tsLarge>("&Large"),
    {aExit, "File", "File", "E&xit", "Close the Murala program", TNeeds::Nothing, None,
     [](EveryAction& t) { return !t.Main() && !t.Services().TrayArea.HasIcon; }},
    {aNewGradient, "File", "File", "New &Gradient", "", TNeeds::Nothing, Waits, Ended},
    {aGetWallpaper, "File", "File", "&Download Wallpaper From Web", "", TNeeds::Nothing, None,
     [](EveryAction& t) { return t.HasStarted("GetWallpaper.html"); }},
    {aOptions, "Options", "tray", "&Show Murala", "", TNeeds::Nothing,
     [](EveryAction& t) { t.Services().TrayArea.Events->TrayLeftClick(); },
     [](EveryAction& t) { return t.IsWindowThere(); }},
    {aTransparentIcons, "Options", "tool", "&Transparent Icons", "Transparent Icons",
     TNeeds::Selection, None,
     [](EveryAction& t) { return t.Item(1).TransparentIcons && !t.Item(0).TransparentIcons; }},
    {aStartAtStartup, "Options", "Options", "&Start At Windows Startup", "", TNeeds::Nothing, None,
     [](EveryAction& t) { return t.Services().Autostart.Commands.contains("Murala"); }},
    {aApplyOnStartup, "Options", "Options", "&Apply Wallpaper On Windows Startup", "",
     TNeeds::Nothing, [](EveryAction& t) { t.Execute(aStartAtStartup); },
     [](EveryAction& t) { return t.Services().Autostart.Commands["Murala"].ends_with(" /apply"); }},
    {aNextOnStartup, "Options", "Options", "&Next On Windows Startup", "", TNeeds::Nothing,
     [](EveryAction& t) {
         t.Execute(aStartAtStartup);
         t.Execute(aApplyOnStartup);
     },
     [](EveryAction& t) { return t.Settings().NextOnStartup; }},
    {aConfiguration, "Options", "Options", "&Configuration", "", TNeeds::Nothing, Waits, Ended},
    {aDesktopColor, "Options", "bDesktopColor", "Select Color", "Select Desktop Background Color",
     TNeeds::Selection, Waits, Ended},
    {aAbout, "Help", "Help", "&About", "", TNeeds::Nothing, Waits, Ended},
    {aMuralaHelp, "Help", "Help", "Murala &Help", "", TNeeds::Nothing, None,
     [](EveryAction& t) { return t.HasStarted("index.html"); }},
    {aDisplayProperties, "Help", "Help", "Windows Display Properties", "", TNeeds::Nothing, None,
     [](EveryAction& t) { return t.HasStarted("display properties"); }},
    {aConfigureAddOn, "", "bAddOnOptions", "&Configure Add On", "", TNeeds::Nothing, Waits, Ended},
    {aIconBox, "", "clbAddOns", "aIconBox", "", TNeeds::Nothing, None,
     [](EveryAction& t) { return t.Settings().UseIconBox; }},
    {aIconBoxOptions, "", "bAddOnOptions", "aIconBoxOptions", "", TNeeds::Nothing,
     [](EveryAction& t) {
         t.SelectAddOn(1);
         t.AwaitDialog();
     },
     Ended},
};
static_assert(std::size(Expectations) == ActionCount);

} // namespace

TEST_P(EveryAction, IsWhereItBelongsAndDoesWhatItSays)
{
    const TExpected& expected = GetParam();
    StartEmpty();
    const TAction& action = m_main->Actions()[expected.Id];
    EXPECT_EQ(action.Caption, expected.Caption);
    EXPECT_EQ(action.Category, expected.Category);
    if (expected.Needs != TNeeds::Nothing) {
        EXPECT_FALSE(IsEnabledThere(expected)) << "there are no wallpapers";
    }
    AddThree();
    if (expected.Needs == TNeeds::Selection) {
        EXPECT_FALSE(IsEnabledThere(expected)) << "none is selected";
    }
    Select(1);
    EXPECT_EQ(action.Hint, expected.Hint);
    expected.Before(*this);
    ASSERT_TRUE(IsEnabledThere(expected)) << expected.Place;

    m_services.Launcher.Started.clear();
    m_services.Desktop.Calls.clear();
    Press(expected);
    EXPECT_TRUE(PumpUntil([&] { return expected.HasHappened(*this); }));
    if (!m_weakMain)
        m_main = nullptr;
    else
        ExpectOneOfEachChoice();
}

INSTANTIATE_TEST_SUITE_P(Table, EveryAction, testing::ValuesIn(Expectations), [](const auto& row) {
    return std::string(TActionList({})[row.param.Id].Name);
});
