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
    const char* Place; // "Menu/Submenu", "tool", "tray", or the name of the control
    TNeeds Needs;
    bool (*HasHappened)(EveryAction&);
    void (*Before)(EveryAction&) = +[](EveryAction&) {};
};

class EveryAction : public TMainFixture, public testing::WithParamInterface<TExpected>
{
public:
    using TMainFixture::Action;
    using TMainFixture::Murala;
    const TMuSettings& Settings() { return Murala().Core.Settings; }
    TMuWallpaper& Item(int row) { return Murala().Core.List.Item(row); }
    TFakeServices& Services() { return m_services; }
    bool IsWindowThere() { return m_main->IsShown() && !m_main->IsIconized(); }
    bool IsShown(const char* name) { return Control<wxWindow>(name).IsShown(); }
    bool HasStarted(const std::string& what, TShellVerb verb = TShellVerb::Open)
    {
        const TFakeLauncher& launcher = m_services.Launcher;
        return launcher.Started.size() == 1 && launcher.Started[0].starts_with(what) &&
               launcher.Verb == verb;
    }
    std::string RunCommand() { return m_services.Autostart.Commands["Murala"]; }
    bool HasApplied(int row)
    {
        return Murala().Core.Selection.CurrentIndex() == row &&
               std::ranges::count(m_services.Desktop.Calls, "install MuralaWallpaper.bmp 0") == 1;
    }
    bool IsPreviewSize(TPreviewSize size, int height)
    {
        const int shown = Control<wxWindow>("iPreview").GetSize().y;
        return Settings().Window.PreviewSize == size &&
               std::abs(shown - m_main->FromDIP(height)) < 4;
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
        Picture("samples/D.bmp", 4, 4, 0);
    }

    void StartEmpty()
    {
        // With room for the largest preview. A new window gets its place once more when it has
        // come.
        const wxSize size = wxWindow::FromDIP(wxSize(1000, 900), nullptr);
        m_folder.Write("Murala.ini", FormatText("[Main]\nWidth=%s\nHeight=%s\n",
                                                {std::to_string(size.x), std::to_string(size.y)}));
        Start();
        m_weakMain = m_main;
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
            if (item->GetItemLabel().BeforeFirst('\t') == ToWx(Action(expected.Id).Caption))
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
            m_services.TrayArea.Events->TrayMenuChosen(TrayItem(expected)->Target);
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
                tool->GetLabel() == wxStripMenuCodes(ToWx(Action(expected.Id).Caption)))
                return tool;
        return nullptr;
    }
    const TMenuEntry* TrayItem(const TExpected& expected)
    {
        m_services.TrayArea.Events->TrayMenuOpens();
        return Find(m_services.TrayArea.Told, Action(expected.Id).Caption);
    }

    wxWeakRef<TfMain> m_weakMain;
    TEscapes m_escapes;
};

constexpr auto Waits = +[](EveryAction& t) { t.AwaitDialog(); };
constexpr auto Ended = +[](EveryAction& t) { return t.HasComeAndGone(); };
using enum TNeeds;

template<TActionId Id, TDisplayMode Mode>
constexpr TExpected DisplayMode{
    Id, "Wallpaper/Display Mode", Selection,
    [](auto& t) {
        return t.Item(1).DisplayMode == Mode && t.Item(0).DisplayMode == dmStretched &&
               t.Action(Id).Checked();
    },
    [](auto& t) { t.Item(1).DisplayMode = Mode == dmTiled ? dmCentered : dmTiled; }};

template<TActionId Id, TPreviewSize Size, int Height>
constexpr TExpected PreviewSize{
    Id, "View/Preview Size", Nothing, [](auto& t) { return t.IsPreviewSize(Size, Height); },
    [](auto& t) { t.Execute(Size == psMini ? aLargeSize : aMiniSize); }};

template<TActionId Id, TThumbnailSize Size>
constexpr TExpected ThumbnailSize{
    Id, "View/Thumbnail Size", Nothing,
    [](auto& t) { return t.Settings().Window.ThumbnailSize == Size; },
    [](auto& t) { t.Execute(Size == tsSmall ? aThumbLarge : aThumbSmall); }};

const TExpected Expectations[] = {
    {aAdd, "Wallpaper", Nothing, Ended, Waits},
    {aRemove, "Wallpaper", Selection,
     [](auto& t) { return t.Murala().Core.List.Count() == 2 && t.Item(1).Title == "C"; }},
    {aApply, "sbApply", Selection, [](auto& t) { return t.HasApplied(1); }},
    {aSelectAll, "Wallpaper", Rows, [](auto& t) { return t.Murala().Core.Selection.Count() == 3; }},
    {aRename, "Wallpaper", Selection, [](auto& t) { return t.IsEditing(); }},
    {aNext, "tool", Rows, [](auto& t) { return t.HasApplied(2); }},
    {aPrevious, "sbPrevious", Rows, [](auto& t) { return t.HasApplied(0); }},
    DisplayMode<aDisplayTiled, dmTiled>,
    DisplayMode<aDisplayCentered, dmCentered>,
    DisplayMode<aDisplayStretched, dmStretched>,
    DisplayMode<aDisplayMirrorTiled, dmMirrorTiled>,
    DisplayMode<aDisplayFitHorizontal, dmFitHorizontally>,
    DisplayMode<aDisplayFitVertical, dmFitVertically>,
    {aDisplayNext, "tool", Selection,
     [](auto& t) {
         return t.Item(1).DisplayMode == dmMirrorTiled && t.Item(0).DisplayMode == dmStretched &&
                t.Action(aDisplayNext).Hint == "Display (Mirror Tiled)";
     }},
    {aRefreshThumbnail, "Wallpaper", Selection,
     [](auto& t) { return !t.Item(1).Thumbnail && !FileExists(t.ThumbnailFile()); },
     [](auto& t) { t.Murala().Thumbnails.GetThumbnail(t.Item(1)); }},
    {aShellOpen, "Wallpaper/Shell", Selection,
     [](auto& t) { return t.HasStarted("B.bmp", TShellVerb::Open); }},
    {aShellEdit, "Wallpaper/Shell", Selection,
     [](auto& t) { return t.HasStarted("B.bmp", TShellVerb::Edit); }},
    {aChangeCategory, "Wallpaper", Selection, Ended, Waits},
    {aCalendar, "Wallpaper", Nothing, [](auto& t) { return t.Settings().AddOns.UseCalendar; }},
    {aCalendarOptions, "Wallpaper", Nothing, Ended, Waits},
    {aApplyAndMinimize, "Wallpaper", Selection,
     [](auto& t) { return t.HasApplied(1) && !t.IsWindowThere(); }},
    PreviewSize<aMiniSize, psMini, 98>,
    PreviewSize<aNormalSize, psNormal, 226>,
    PreviewSize<aLargeSize, psLarge, 458>,
    {aViewList, "View", Nothing,
     [](auto& t) { return t.IsShown("lvWallpaper") && !t.IsShown("lvThumbnails"); },
     [](auto& t) { t.Execute(aViewThumbnails); }},
    {aViewThumbnails, "View", Nothing,
     [](auto& t) { return t.IsShown("lvThumbnails") && !t.IsShown("lvWallpaper"); }},
    {aNextView, "tool", Nothing,
     [](auto& t) {
         return t.IsShown("lvThumbnails") && t.Action(aNextView).Hint == "View (Thumbnails)";
     }},
    ThumbnailSize<aThumbSmall, tsSmall>,
    ThumbnailSize<aThumbNormal, tsNormal>,
    ThumbnailSize<aThumbLarge, tsLarge>,
    {aExit, "File", Nothing, [](auto& t) { return !t.Main() && !t.Services().TrayArea.HasIcon; }},
    {aNewGradient, "File", Nothing, Ended, Waits},
    {aGetWallpaper, "File", Nothing, [](auto& t) { return t.HasStarted("GetWallpaper.html"); }},
    {aOptions, "tray", Nothing, [](auto& t) { return t.IsWindowThere(); },
     [](auto& t) { t.Services().TrayArea.Events->TrayLeftClick(); }},
    {aTransparentIcons, "tool", Selection,
     [](auto& t) { return t.Item(1).TransparentIcons && !t.Item(0).TransparentIcons; }},
    {aStartAtStartup, "Options", Nothing, [](auto& t) { return !t.RunCommand().empty(); }},
    {aApplyOnStartup, "Options", Nothing,
     [](auto& t) { return t.RunCommand().ends_with(" /apply"); },
     [](auto& t) { t.Execute(aStartAtStartup); }},
    {aNextOnStartup, "Options", Nothing,
     [](auto& t) { return t.Settings().Preferences.NextOnStartup; },
     [](auto& t) {
         t.Execute(aStartAtStartup);
         t.Execute(aApplyOnStartup);
     }},
    {aConfiguration, "Options", Nothing, Ended, Waits},
    {aDesktopColor, "bDesktopColor", Selection, Ended, Waits},
    {aAbout, "Help", Nothing, Ended, Waits},
    {aMuralaHelp, "Help", Nothing, [](auto& t) { return t.HasStarted("index.html"); }},
    {aDisplayProperties, "Help", Nothing,
     [](auto& t) { return t.HasStarted("display properties"); }},
    {aConfigureAddOn, "bAddOnOptions", Nothing, Ended, Waits},
    {aIconBox, "clbAddOns", Nothing, [](auto& t) { return t.Settings().AddOns.UseIconBox; }},
    {aIconBoxOptions, "bAddOnOptions", Nothing, Ended,
     [](auto& t) {
         t.SelectAddOn(1);
         t.AwaitDialog();
     }},
    {aAddSamples, "bAddSamples", Nothing,
     [](auto& t) { return t.Murala().Core.List.Count() == 4 && t.Item(3).Title == "D"; }},
};
static_assert(std::size(Expectations) == ActionCount);

} // namespace

TEST_P(EveryAction, IsWhereItBelongsAndDoesWhatItSays)
{
    const TExpected& expected = GetParam();
    StartEmpty();
    if (expected.Needs != TNeeds::Nothing) {
        EXPECT_FALSE(IsEnabledThere(expected)) << "there are no wallpapers";
    }
    AddThree();
    if (expected.Needs == TNeeds::Selection) {
        EXPECT_FALSE(IsEnabledThere(expected)) << "none is selected";
    }
    Select(1);
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
