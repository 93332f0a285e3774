#include "MainFixture.h"

#include "uItemWork.h"
#include "uSafeFile.h"

#include <wx/weakref.h>

using namespace murala;

using WindowOnScreen = TMainFixture;

TEST_F(WindowOnScreen, AHiddenStartWithApplyLoadsNothingElseUntilAnotherCopyWakesIt)
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

TEST_F(WindowOnScreen, WhatComesInDuringADialogWaitsForItsEnd)
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

TEST_F(WindowOnScreen, FilesThatAreDroppedDuringAMessageAreAddedAfterIt)
{
    Start();
    m_messages.OnMessage = [this] {
        auto* name = new wxString[1]{ToWx(Picture("Dropped.bmp", 4, 4, 0))}; // the event's
        wxDropFilesEvent drop(wxEVT_DROP_FILES, 1, name);
        m_main->ProcessWindowEvent(drop);
        EXPECT_EQ(Murala().Core.List.Count(), 0);
    };
    Murala().Core.Tell("Something to read.");
    m_messages.OnMessage = nullptr;
    EXPECT_TRUE(PumpUntil([&] { return Murala().Core.List.Count() == 1; }));
}

TEST_F(WindowOnScreen, TheSessionsEndEndsLongWorkBetweenTwoItems)
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

TEST_F(WindowOnScreen, TheSessionIsLetEndWithoutAMessageThoughNothingCanBeSaved)
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

TEST_F(WindowOnScreen, TheSessionsQuestionSavesAtOnceAlsoDuringADialog)
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

TEST_F(WindowOnScreen, NothingElseStandsBesideAMessageAtTheStart)
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

TEST_F(WindowOnScreen, GoesToTheTrayWhereThereIsOneAndComesBackWhereItWas)
{
    m_services.TrayArea.Place = TTrayState::There;
    Start();
    AddTwo();
    Select(0);
    auto& preview = Control<TPreviewPanel>("iPreview");
    EXPECT_TRUE(PumpUntil([&] { return preview.Picture().IsOk(); }));
    const wxRect before = m_main->GetRect();
    Murala().Thumbnails.GetThumbnail(Murala().Core.List.Item(1));
    Execute(aApplyAndMinimize);
    EXPECT_FALSE(m_main->IsShown());
    EXPECT_TRUE(Murala().Core.List.LoadedThumbnails.empty()) << "the hidden program is small";
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

TEST_F(WindowOnScreen, AfterAHiddenStartTheCurrentRowIsSeen)
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
