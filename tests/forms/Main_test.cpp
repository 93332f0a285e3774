#include "MainFixture.h"

#include "uCallLater.h"
#include "uProgress.h"
#include "uText.h"
#include "uWallpaperSchedule.h"

#include <wx/uiaction.h>

using namespace murala;

using MainWindow = TMainFixture;

TEST_F(MainWindow, ShowsAddedPicturesAndComesBackWithThemInTheSameViews)
{
    static constexpr TActionId views[] = {aLargeSize, aViewThumbnails, aThumbLarge};
    Start();
    AddTwo();
    EXPECT_EQ(List().ShownRows(), 2);
    EXPECT_EQ(List().ShownText(1, lcFileName), wxString::FromUTF8("Gr\xC3\xBCn, 'quoted'.bmp"));
    EXPECT_TRUE(PumpUntil(
        [&] { return Control<wxStaticText>("pStatusText").GetLabel().EndsWith("(40x30)"); }));
    for (const TActionId action : views)
        Execute(action);
    Close();
    Start();
    EXPECT_EQ(Murala().Core.List.Count(), 2);
    for (const TActionId action : views)
        EXPECT_TRUE(Action(action).Checked()) << Action(action).Name;
    EXPECT_TRUE(Control<wxWindow>("lvThumbnails").IsShown());
    EXPECT_TRUE(m_messages.Texts.empty());
}

TEST_F(MainWindow, SettingsPagesFollowTheSelectionAndChangeTheItem)
{
    Start();
    AddTwo();
    Select(0);
    auto& style = Control<wxChoice>("cbGammaStyle");
    style.SetSelection(gsVertical);
    Send(style, wxEVT_CHOICE, gsVertical);
    auto& bar = Control<wxSlider>("tbGammaGreenEnd");
    EXPECT_TRUE(bar.IsEnabled());
    Slide(*m_main, "tbGammaGreenEnd", -77);
    EXPECT_EQ(Murala().Core.List.Item(0).GammaEndGreen, -77);
    Select(1);
    EXPECT_EQ(style.GetSelection(), gsNone);
    EXPECT_FALSE(bar.IsEnabled());
    Select(0);
    EXPECT_EQ(style.GetSelection(), gsVertical);
    EXPECT_EQ(bar.GetValue(), -77);
    Close();
    Start();
    EXPECT_EQ(Murala().Core.List.Item(0).GammaEndGreen, -77);
}

TEST_F(MainWindow, ASliderMovedByKeysIsSavedAsItStands)
{
    Start();
    AddTwo();
    Select(0);
    Murala().Editor.SetGammaStyle(Murala().Core.Selection.Items(), gsSolid);
    Control<wxNotebook>("pcEffect").SetSelection(1);
    auto& bar = Control<wxSlider>("tbGammaRedStart");
    m_main->Raise();
    Pump(200);
    bar.SetFocus();
    ASSERT_TRUE(PumpUntil([&] { return bar.HasFocus(); }));
    wxUIActionSimulator keyboard;
    const int before = bar.GetValue();
    keyboard.Char(WXK_LEFT);
    keyboard.Char(WXK_LEFT);
    EXPECT_TRUE(PumpUntil([&] { return bar.GetValue() == before - 2; })) << bar.GetValue();
    TMuWallpaperList saved;
    EXPECT_TRUE(PumpUntil([&] {
        saved.Clear();
        saved.LoadFromFile(m_folder.File(ListFileName));
        return saved.Item(0).GammaStartRed == before - 2;
    }));
    EXPECT_TRUE(bar.GetToolTipText().EndsWith(std::to_string(before - 2)));
}

TEST_F(MainWindow, AnotherNumberOfDotsAnInchScalesThePanels)
{
    Start();
    Pump(400); // until the window has settled in its place
    m_main->SetSize(1200, 900);
    Pump(100);
    auto& vertical = Control<wxSplitterWindow>("spVertical");
    auto& horizontal = Control<wxSplitterWindow>("spHorizontal");
    const auto rightWidth = [&] { return vertical.GetClientSize().x - vertical.GetSashPosition(); };
    const int width = rightWidth(), height = horizontal.GetSashPosition();
    wxDPIChangedEvent event({96, 96}, {144, 144});
    event.SetEventObject(m_main);
    m_main->ProcessWindowEvent(event);
    EXPECT_TRUE(event.GetSkipped()) << "the toolkit changes the window's size";
    Pump(100);
    EXPECT_NEAR(rightWidth(), width * 1.5, 8);
    EXPECT_NEAR(horizontal.GetSashPosition(), height * 1.5, 8);
}

TEST_F(MainWindow, WhatHadTheFocusHasItAgainAfterALongWork)
{
    Start();
    AddTwo();
    wxWindow& list = List().Window();
    const auto hasFocus = [&] { return wxWindow::FindFocus() == &list; };
    list.SetFocus();
    ASSERT_TRUE(PumpUntil(hasFocus));
    {
        TProgressDialog work(m_main, 10);
        Pump(100);
        EXPECT_TRUE(work.Step(1, "A & B"));
        EXPECT_TRUE(PumpUntil([&] { return !hasFocus(); }));
    }
    EXPECT_TRUE(PumpUntil(hasFocus));
}

TEST_F(MainWindow, TheHelpOpensAtThePageThatHasTheFocus)
{
    std::filesystem::create_directory(NativePath(m_folder.File("help")));
    for (const char* name : {"index", "desktop", "tint", "effect", "addons"})
        m_folder.Write(FormatText("help/%s.html", {name}), "");
    Start();
    AddTwo();
    auto& book = Control<wxNotebook>("pcEffect");
    const auto opens = [&](wxWindow& focus) {
        focus.SetFocus();
        PumpUntil([&] { return wxWindow::FindFocus() == &focus; });
        Execute(aMuralaHelp);
        return m_services.Launcher.Started.back();
    };
    book.SetSelection(1);
    EXPECT_EQ(opens(List().Window()), "index.html ");
    EXPECT_EQ(opens(Control<wxWindow>("cbGammaStyle")), "tint.html ");
    const std::string pages[] = {"desktop.html ", "tint.html ", "effect.html ", "addons.html "};
    for (std::size_t page = 0; page < std::size(pages); ++page) {
        book.SetSelection(page);
        EXPECT_EQ(opens(book), pages[page]);
    }
}

TEST_F(MainWindow, AFailingActionIsToldAndTheProgramGoesOn)
{
    Start();
    m_main->Actions()[aAbout].OnExecute = [] { throw std::bad_alloc(); };
    Execute(aAbout);
    EXPECT_EQ(m_messages.Texts, std::vector<std::string>{"There is not enough memory for this."});
    CallLater(*m_main, [] { throw std::runtime_error("the sky fell"); });
    EXPECT_TRUE(PumpUntil(
        [&] { return Control<wxStaticText>("pStatusText").GetLabel() == "the sky fell"; }));
    AddTwo();
    EXPECT_EQ(Murala().Core.List.Count(), 2);
}

TEST_F(MainWindow, ATitleBeingTypedIsKeptWhenTheFocusGoesElsewhere)
{
    Start();
    AddTwo();
    m_main->Raise();
    wxUIActionSimulator keyboard;
    for (const TActionId view : {aViewList, aViewThumbnails}) {
        Execute(view);
        Select(0);
        for (const bool isKept : {true, false}) {
            Execute(aRename);
            Pump(200);
            const std::string title = isKept ? "Kept" + std::to_string(view) : "Dropped";
            keyboard.Text(title.c_str());
            Pump(200);
            if (!isKept)
                keyboard.Char(WXK_ESCAPE);
            Pump(100);
            Control<wxWindow>("sbApply").SetFocus();
            Pump(200);
            EXPECT_EQ(Murala().Core.List.Item(0).Title, "Kept" + std::to_string(view));
        }
    }
}

TEST_F(MainWindow, AScheduleThatIsConfirmedBegins)
{
    Start();
    AddTwo();
    TConfiguration configuration = Murala().Configurator.Present();
    configuration.Schedule = {true, 1, suMinute, 0.5, 0};
    Murala().Configurator.Confirm(configuration);
    m_services.Clock.Time += 2 / MinutesPerDay;
    EXPECT_TRUE(PumpUntil([&] { return !m_services.Desktop.Calls.empty(); }));
}

TEST_F(MainWindow, AKeyThatWasPressedTwiceOpensOneDialog)
{
    Start();
    int opened = 0;
    m_main->Actions()[aAbout].OnExecute = [&] {
        const TPauseScope pause(Murala().Core.Pauses);
        ++opened;
        Pump(100);
    };
    for (int i = 0; i < 2; ++i)
        m_main->Actions().Request(aAbout);
    Pump(50);
    EXPECT_EQ(opened, 1);
    m_main->Actions().Request(aAbout);
    EXPECT_TRUE(PumpUntil([&] { return opened == 2; }));
}

TEST_F(MainWindow, ControlsAreInsideTheirParentsAndNothingIsCut)
{
    Start();
    Pump(200);
    std::function<void(wxWindow&)> check = [&](wxWindow& window) {
        for (wxWindow* child : window.GetChildren()) {
            if (!child->IsShownOnScreen() || child->IsTopLevel())
                continue;
            if (dynamic_cast<wxAnyButton*>(child) != nullptr ||
                dynamic_cast<wxCheckBox*>(child) != nullptr) {
                const wxSize best = child->GetBestSize(), size = child->GetSize();
                EXPECT_GE(size.x, best.x) << child->GetName();
                const wxRect parent(window.GetClientSize());
                EXPECT_TRUE(parent.Contains(child->GetRect())) << child->GetName();
            }
            check(*child);
        }
    };
    auto& pages = Control<wxNotebook>("pcEffect");
    for (std::size_t page = 0; page < pages.GetPageCount(); ++page) {
        pages.SetSelection(page);
        Pump(30);
        check(*m_main);
    }
}

TEST(ScheduleDialog, EnablesWhatMattersAndGivesBackWhatItWasGiven)
{
    TfSchedule dialog(nullptr, {true, 3, suWeek, 18.5 / 24, 4}, 46000.25);
    const auto isEnabled = [&](const char* name) {
        return Find<wxWindow>(dialog, name).IsEnabled();
    };
    const TScheduleSettings back = dialog.Schedule();
    EXPECT_TRUE(back.Use);
    EXPECT_EQ(back.Frequency, 3);
    EXPECT_EQ(back.Units, suWeek);
    EXPECT_NEAR(back.At, 18.5 / 24, 1e-9);
    EXPECT_EQ(back.On, 4);
    EXPECT_TRUE(isEnabled("cbOn"));
    auto& units = Find<wxChoice>(dialog, "cbUnits");
    EXPECT_EQ(units.GetStringSelection(), "Weeks");
    units.SetSelection(suHour);
    Send(units, wxEVT_CHOICE);
    EXPECT_FALSE(isEnabled("cbOn") || isEnabled("dtpAt"));
}
