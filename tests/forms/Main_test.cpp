#include "MainFixture.h"

#include "uCallLater.h"
#include "uItemWork.h"
#include "uProgress.h"
#include "uSafeFile.h"
#include "uWallpaperSchedule.h"

#include <wx/uiaction.h>
#include <wx/weakref.h>

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

TEST_F(MainWindow, RemovesSortsAndRenamesRows)
{
    Start();
    AddPictures({"C.bmp", "A.bmp", "D.bmp", "B.bmp"});
    TMuListView& list = List();
    wxUIActionSimulator mouse;
    mouse.MouseMove(list.Window().ClientToScreen(list.RowRect(0).GetTopLeft() + wxPoint(20, -10)));
    mouse.MouseClick(); // on the header of the titles
    EXPECT_TRUE(PumpUntil([&] { return list.ShownText(0, lcTitle) == "A"; }));
    Pump(50);
    TMuWallpaperList saved;
    saved.LoadFromFile(m_folder.File(ListFileName));
    EXPECT_EQ(saved.Item(0).Title, "A");
    Murala().Core.Selection.SelectRows({1, 2}, 2);
    Execute(aRemove);
    EXPECT_EQ(list.ShownRows(), 2);
    EXPECT_EQ(list.FocusedRow(), 1);
    Murala().Desk.Rename(Murala().Core.List.Item(1), "Other");
    EXPECT_EQ(list.ShownText(1, lcTitle), "Other");
    Execute(aSelectAll);
    EXPECT_EQ(list.ShownSelection().size(), 2U);
    Execute(aRemove);
    EXPECT_EQ(list.ShownRows(), 0);
    EXPECT_FALSE(m_main->Actions()[aApply].Enabled());
}

TEST_F(MainWindow, ThePreviewIsComposedAndABrokenPictureSaysSo)
{
    Start();
    AddPictures({"A.bmp"});
    auto& preview = Control<TPreviewPanel>("iPreview");
    EXPECT_TRUE(PumpUntil([&] { return preview.Picture().IsOk(); }));
    const wxSize size = preview.Picture().GetSize();
    EXPECT_NEAR(static_cast<double>(size.x) / size.y, 320.0 / 200.0, 0.02);
    Murala().Desk.AddFiles({m_services.ProgramFolder + "Missing.jpg"});
    EXPECT_TRUE(PumpUntil([&] { return preview.Text().Contains("could not be loaded"); }));
    EXPECT_TRUE(m_messages.Texts.empty());
}

TEST_F(MainWindow, AHiddenStartWithApplyLoadsNothingElseUntilAnotherCopyWakesIt)
{
    Start();
    AddPictures({"A.bmp", "B.bmp"});
    Select(0);
    m_services.Clock.Time += 1;
    Execute(aApply);
    EXPECT_EQ(Control<wxStaticText>("lLastChange").GetLabel(), "Last Change: 10/12/2025 12:00");
    Murala().Core.Settings.Preferences.NextOnStartup = true;
    m_main->Iconize();
    ASSERT_TRUE(PumpUntil([&] { return m_main->IsIconized(); }));
    Close();
    m_services.Desktop.Calls.clear();
    m_main = new TfMain(m_services.Services(), m_link);
    m_main->Activate({"/APPLY"});
    EXPECT_TRUE(PumpUntil([&] { return m_main->IsIconized(); }));
    Pump(800);
    EXPECT_TRUE(m_main->IsIconized());
    EXPECT_EQ(Murala().Core.Selection.CurrentIndex(), 1);
    EXPECT_FALSE(m_services.Desktop.Calls.empty());
    EXPECT_EQ(Murala().Preview.Picture(20).Width(), 0);
    m_services.FileQueue.QueueFiles({Picture("C.bmp", 4, 4, 0)});
    m_link.Wake();
    EXPECT_TRUE(PumpUntil([&] { return Murala().Core.List.Count() == 3; }));
    EXPECT_TRUE(PumpUntil([&] { return Control<TPreviewPanel>("iPreview").Picture().IsOk(); }));
    EXPECT_TRUE(m_main->IsEnabled());
    Close();
    Start();
    EXPECT_EQ(Murala().Core.Selection.CurrentIndex(), 1);
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

TEST_F(MainWindow, WhatComesInDuringADialogWaitsForItsEnd)
{
    Start();
    AddTwo();
    Murala().Core.Settings.Schedule.Use = true;
    Murala().Core.Settings.Memory.LastChangeDate = 0;
    m_services.FileQueue.QueueFiles({Picture("C.bmp", 4, 4, 0)});
    InDialog("TfConfiguration", [&](wxDialog&) {
        m_link.Wake();
        Pump(20);
        EXPECT_FALSE(m_main->Close());
        EXPECT_EQ(Murala().Core.List.Count(), 2);
        Murala().Ticker.ScheduleTick();
        EXPECT_TRUE(m_services.Desktop.Calls.empty());
    });
    const wxWeakRef<TfMain> main(m_main);
    Execute(aConfiguration);
    EXPECT_TRUE(PumpUntil([&] { return !main; })) << "it was asked to close";
    m_main = nullptr;
    Start();
    EXPECT_EQ(Murala().Core.List.Count(), 3) << "nothing that was queued is lost";
}

TEST_F(MainWindow, TheSessionsEndEndsLongWorkBetweenTwoItems)
{
    Start();
    AddTwo();
    const wxWeakRef<TfMain> main(m_main);
    std::size_t done = 0;
    InDialog("TfConfiguration", [&](wxDialog&) {
        Murala().Core.Selection.SelectAll();
        done = WorkOn(Murala().Core, Murala().Core.Selection.Items(), "Refreshing Thumbnail",
                      [&](TMuWallpaper&) { m_services.SessionEnd.OnEnd(); });
    });
    Execute(aConfiguration);
    EXPECT_EQ(done, 1U);
    EXPECT_TRUE(PumpUntil([&] { return !main; }, 1000)) << "nothing holds the window any longer";
    if (main)
        main->Destroy(); // or it would end the test's process
    m_main = nullptr;
}

TEST_F(MainWindow, TheSessionIsLetEndWithoutAMessageThoughNothingCanBeSaved)
{
    Start();
    AddTwo();
    Murala().Core.List.Item(0).Title = "Unsaved";
    const std::string list = m_services.ProgramFolder + "Murala.Wallpaper.List";
    std::filesystem::create_directory(NativePath(list + ".new"));
    m_services.SessionEnd.OnQuestion();
    Pump(50);
    EXPECT_TRUE(m_main->IsShown()) << "another program may refuse";
    Murala().Storage.SaveList();
    EXPECT_EQ(m_messages.Texts.size(), 1U) << "the session goes on, and the user is told";
    const wxWeakRef<TfMain> main(m_main);
    m_services.SessionEnd.OnEnd();
    m_services.FileQueue.QueueFiles({Picture("C.bmp", 4, 4, 0)});
    m_link.Wake();
    EXPECT_TRUE(PumpUntil([&] { return !main; }, 1000));
    m_main = nullptr;
    EXPECT_EQ(m_messages.Texts.size(), 1U);
    EXPECT_EQ(m_services.FileQueue.Names.size(), 1U) << "they wait for the next start";
}

TEST_F(MainWindow, TheSessionsQuestionSavesAtOnceAlsoDuringADialog)
{
    Start();
    AddTwo();
    InDialog("TfConfiguration", [&](wxDialog& dialog) {
        Murala().Core.List.Item(0).Title = "Changed";
        m_services.SessionEnd.OnQuestion();
        EXPECT_NE(ReadWholeFile(m_services.ProgramFolder + "Murala.Wallpaper.List").find("Changed"),
                  std::string::npos);
        wxCloseEvent toolkit(wxEVT_QUERY_END_SESSION, wxID_ANY);
        toolkit.SetCanVeto(true);
        EXPECT_TRUE(wxTheApp->SafelyProcessEvent(toolkit));
        EXPECT_FALSE(toolkit.GetVeto());
        EXPECT_TRUE(dialog.IsModal());
    });
    const wxWeakRef<TfMain> main(m_main);
    Execute(aConfiguration);
    Pump(100);
    EXPECT_TRUE(main);
}

TEST_F(MainWindow, NothingElseStandsBesideAMessageAtTheStart)
{
    for (const char* file : {"Murala.ini", "Murala.Wallpaper.List"})
        std::filesystem::create_directory(NativePath(m_services.ProgramFolder + file));
    m_messages.OnMessage = [] {
        EXPECT_EQ(wxWindow::FindWindowByName("TfProgress"), nullptr);
        wxMilliSleep(400); // after which the start would take too long to say nothing
    };
    Start();
    EXPECT_GE(m_messages.Texts.size(), 2U);
    m_messages.OnMessage = nullptr;
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
    EXPECT_NEAR(rightWidth(), width * 3 / 2, 8);
    EXPECT_NEAR(horizontal.GetSashPosition(), height * 3 / 2, 8);
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

TEST_F(MainWindow, GoesToTheTrayWhereThereIsOneAndComesBackWhereItWas)
{
    m_services.TrayArea.Place = TTrayState::There;
    Start();
    AddTwo();
    Select(0);
    auto& preview = Control<TPreviewPanel>("iPreview");
    EXPECT_TRUE(PumpUntil([&] { return preview.Picture().IsOk(); }));
    const wxRect before = m_main->GetRect();
    Execute(aApplyAndMinimize);
    EXPECT_FALSE(m_main->IsShown());
    ASSERT_EQ(m_messages.Texts.size(), 1U);
    EXPECT_NE(m_messages.Texts[0].find("notification area"), std::string::npos);
    EXPECT_FALSE(preview.Picture().IsOk());
    Pump(400);
    m_services.TrayArea.Events->TrayLeftClick();
    EXPECT_TRUE(PumpUntil([&] { return m_main->IsShown() && !m_main->IsIconized(); }));
    EXPECT_TRUE(PumpUntil([&] { return preview.Picture().IsOk(); }));
    Pump(500);
    EXPECT_EQ(m_main->GetRect(), before);
    m_services.TrayArea.Events->TrayLeftClick();
    EXPECT_TRUE(PumpUntil([&] { return !m_main->IsShown(); }));
    EXPECT_EQ(m_messages.Texts.size(), 1U);
    Execute(aOptions);
    EXPECT_TRUE(m_main->IsShown());
    // Whatever minimises the window hides it.
    m_main->Iconize();
    EXPECT_TRUE(PumpUntil([&] { return !m_main->IsShown(); }));
    m_services.TrayArea.Turn(TTrayState::Missing); // and without the icon it can be reached
    EXPECT_TRUE(PumpUntil([&] { return m_main->IsShown(); }));
    m_services.TrayArea.Turn(TTrayState::There);
    Close();
    EXPECT_FALSE(m_services.TrayArea.HasIcon);
}

TEST_F(MainWindow, AfterAHiddenStartTheCurrentRowIsSeen)
{
    m_services.TrayArea.Place = TTrayState::There;
    for (const TActionId view : {aViewList, aViewThumbnails}) {
        Start();
        std::vector<std::string> names;
        for (int i = 0; i < 300; ++i)
            names.push_back("P" + std::to_string(i) + ".bmp");
        AddPictures(names);
        Execute(view);
        Select(250);
        Execute(aApply);
        m_services.TrayArea.Events->TrayLeftClick();
        ASSERT_TRUE(PumpUntil([&] { return !m_main->IsShown(); }));
        Close();
        m_main = new TfMain(m_services.Services(), m_link);
        m_main->Activate({});
        Pump(300);
        EXPECT_FALSE(m_main->IsShown());
        m_services.TrayArea.Events->TrayLeftClick();
        ASSERT_TRUE(PumpUntil([&] { return m_main->IsShown(); }));
        Pump(800);
        TWallpaperView& shown =
            view == aViewList ? static_cast<TWallpaperView&>(List())
                              : dynamic_cast<TMuThumbnailView&>(Control<wxWindow>("lvThumbnails"));
        const wxRect row = shown.RowRect(250);
        EXPECT_GT(row.height, 0) << view;
        EXPECT_GE(row.y, 0) << view;
        EXPECT_LE(row.GetBottom(), shown.Window().GetClientSize().y) << view;
        Close();
    }
}

TEST_F(MainWindow, AHiddenStartStaysHiddenUntilTheIconIsClicked)
{
    m_services.TrayArea.Place = TTrayState::There;
    Start();
    m_services.TrayArea.Events->TrayLeftClick();
    Pump(20);
    Close();
    m_services.TrayArea.Place = TTrayState::Asking; // the desktop is slow
    m_main = new TfMain(m_services.Services(), m_link);
    m_main->Activate({});
    Pump(600);
    EXPECT_FALSE(m_main->IsShown());
    m_services.TrayArea.Turn(TTrayState::There);
    Pump(300);
    EXPECT_FALSE(m_main->IsShown());
    EXPECT_TRUE(m_services.TrayArea.HasIcon);
    m_services.TrayArea.Events->TrayLeftClick();
    Pump(600);
    EXPECT_TRUE(m_main->IsShown());
    EXPECT_FALSE(m_main->IsIconized());
    EXPECT_EQ(m_messages.Texts.size(), 1U);
    m_services.TrayArea.Events->TrayLeftClick();
    Pump(20);
    Close();
    m_services.TrayArea.Place = TTrayState::Asking;
    m_main = new TfMain(m_services.Services(), m_link);
    m_main->Activate({});
    m_services.TrayArea.Turn(TTrayState::Missing); // there is none: minimised, then
    EXPECT_TRUE(PumpUntil([&] { return m_main->IsShown() && m_main->IsIconized(); }));
}
