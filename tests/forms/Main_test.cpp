#include "MainFixture.h"

#include "uCallLater.h"
#include "uMuralaApp.h"
#include "uProgress.h"
#include "uWallpaperSchedule.h"

#include <wx/spinctrl.h>
#include <wx/uiaction.h>
#include <wx/weakref.h>

using namespace murala;

using MainWindow = TMainFixture;

TEST_F(MainWindow, ShowsAddedPicturesAndComesBackWithThem)
{
    Start();
    AddTwo();
    TMuListView& list = List();
    EXPECT_EQ(list.ShownRows(), 2);
    EXPECT_EQ(list.ShownText(1, lcFileName), wxString::FromUTF8("Gr\xC3\xBCn, 'quoted'.bmp"));
    EXPECT_TRUE(PumpUntil(
        [&] { return Control<wxStaticText>("pStatusText").GetLabel().EndsWith("(40x30)"); }));
    Close();
    Start();
    EXPECT_EQ(List().ShownRows(), 2);
    EXPECT_TRUE(m_messages.Texts.empty());
}

TEST_F(MainWindow, AppliesTheSelectedRowByItsAction)
{
    Start();
    m_main->Murala().Desk.AddFiles(
        {Picture("Rot.bmp", 40, 30, 0x0000FF), Picture("Blau.bmp", 40, 30, 0xFF0000)});
    Select(1);
    m_services.Clock.Time += 1;
    m_main->Actions().Execute(aApply);
    EXPECT_EQ(Control<wxStaticText>("lLastChange").GetLabel(), "Last Change: 10/12/2025 12:00");
    const TBitmap picture = LoadImageFile(m_services.ProgramFolder + "MuralaWallpaper.bmp");
    EXPECT_EQ(picture.Size(), m_services.Desktop.Screen);
    EXPECT_EQ(picture.Row(199)[319] & 0xFFFFFF, ColorToPixel(0xFF0000));
    m_main->Actions().Execute(aNext);
    EXPECT_EQ(m_main->Murala().Core.Selection.CurrentIndex(), 0);
    EXPECT_EQ(List().FocusedRow(), 0);
}

TEST_F(MainWindow, SettingsPagesFollowTheSelectionAndChangeTheItem)
{
    Start();
    m_main->Murala().Desk.AddFiles(
        {Picture("A.bmp", 40, 30, 0), Picture("B.bmp", 40, 30, 0xFFFFFF)});
    Select(0);
    auto& style = Control<wxChoice>("cbGammaStyle");
    style.SetSelection(gsVertical);
    wxCommandEvent chosen(wxEVT_CHOICE, style.GetId());
    chosen.SetEventObject(&style);
    chosen.SetInt(gsVertical);
    style.ProcessWindowEvent(chosen);
    auto& bar = Control<wxSlider>("tbGammaGreenEnd");
    EXPECT_TRUE(bar.IsEnabled());
    bar.SetValue(-77);
    wxCommandEvent moved(wxEVT_SLIDER, bar.GetId());
    moved.SetEventObject(&bar);
    bar.ProcessWindowEvent(moved);
    EXPECT_EQ(m_main->Murala().Core.List.Item(0).GammaEndGreen, -77);
    Select(1);
    EXPECT_EQ(style.GetSelection(), gsNone);
    EXPECT_FALSE(bar.IsEnabled());
    Select(0);
    EXPECT_EQ(style.GetSelection(), gsVertical);
    EXPECT_EQ(bar.GetValue(), -77);
    Close();
    Start();
    EXPECT_EQ(m_main->Murala().Core.List.Item(0).GammaEndGreen, -77);
}

TEST_F(MainWindow, ModesShowTheirChecksHintsAndMessages)
{
    Start();
    m_services.Desktop.Screen = {1920, 1080};
    m_main->Murala().Desk.AddFiles({Picture("Wide.bmp", 900, 30, 0)});
    Select(0);
    TActionList& actions = m_main->Actions();
    EXPECT_TRUE(actions[aDisplayStretched].Checked());
    actions.Execute(aDisplayMirrorTiled);
    EXPECT_EQ(m_messages.Texts,
              std::vector<std::string>{"This image is too large to use mirror tiled mode."});
    EXPECT_TRUE(actions[aDisplayFitHorizontal].Checked());
    EXPECT_EQ(actions[aDisplayNext].Hint, "Display (Fit Horizontally)");
}

TEST_F(MainWindow, RemovesSortsAndRenamesRows)
{
    Start();
    std::vector<std::string> files;
    for (const char* name : {"C.bmp", "A.bmp", "D.bmp", "B.bmp"})
        files.push_back(Picture(name, 4, 4, 0));
    m_main->Murala().Desk.AddFiles(files);
    TMuListView& list = List();
    m_main->Murala().Desk.SortByColumn(lcTitle);
    EXPECT_EQ(list.ShownText(0, lcTitle), "A");
    m_main->Murala().Core.Selection.SelectRows({1, 2}, 2);
    m_main->Actions().Execute(aRemove);
    EXPECT_EQ(list.ShownRows(), 2);
    EXPECT_EQ(list.FocusedRow(), 1);
    m_main->Murala().Desk.Rename(m_main->Murala().Core.List.Item(1), "Other");
    EXPECT_EQ(list.ShownText(1, lcTitle), "Other");
    m_main->Actions().Execute(aSelectAll);
    EXPECT_EQ(list.ShownSelection().size(), 2U);
    m_main->Actions().Execute(aRemove);
    EXPECT_EQ(list.ShownRows(), 0);
    EXPECT_FALSE(m_main->Actions()[aApply].Enabled());
}

TEST_F(MainWindow, ThePreviewIsComposedAndABrokenPictureSaysSo)
{
    Start();
    m_main->Murala().Desk.AddFiles({Picture("A.bmp", 40, 30, 0x0000FF)});
    auto& preview = Control<TPreviewPanel>("iPreview");
    EXPECT_TRUE(PumpUntil([&] { return preview.Picture().IsOk(); }));
    const wxSize size = preview.Picture().GetSize();
    EXPECT_NEAR(static_cast<double>(size.x) / size.y, 320.0 / 200.0, 0.02);
    m_main->Murala().Desk.AddFiles({m_services.ProgramFolder + "Missing.jpg"});
    EXPECT_TRUE(PumpUntil([&] { return preview.Text().Contains("could not be loaded"); }));
    EXPECT_TRUE(m_messages.Texts.empty());
}

TEST_F(MainWindow, AStartWithApplyAppliesAndAnotherCopyWakesIt)
{
    Start();
    m_main->Murala().Desk.AddFiles({Picture("A.bmp", 4, 4, 0), Picture("B.bmp", 4, 4, 0)});
    Select(0);
    m_main->Actions().Execute(aApply);
    m_main->Murala().Core.Settings.NextOnStartup = true;
    m_main->Iconize();
    Close();
    m_services.Desktop.Calls.clear();
    Start({"/APPLY"});
    EXPECT_EQ(m_main->Murala().Core.Selection.CurrentIndex(), 1);
    EXPECT_FALSE(m_services.Desktop.Calls.empty());
    const std::string queued = Picture("C.bmp", 4, 4, 0);
    m_services.FileQueue.QueueFiles({queued});
    m_link.Wake();
    EXPECT_EQ(m_main->Murala().Core.List.Count(), 3);
    EXPECT_TRUE(m_main->IsEnabled());
    Close();
    Start();
    EXPECT_EQ(m_main->Murala().Core.Selection.CurrentIndex(), 1);
}

TEST_F(MainWindow, ASliderMovedByKeysIsSavedAsItStands)
{
    Start();
    AddTwo();
    Select(0);
    m_main->Murala().Editor.SetGammaStyle(m_main->Murala().Core.Selection.Items(), gsSolid);
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
    m_messages.AreShown = true;
    m_main->Murala().Core.Settings.UseSchedule = true;
    m_main->Murala().Core.Settings.LastChangeDate = 0;
    m_services.FileQueue.QueueFiles({Picture("C.bmp", 4, 4, 0)});
    wxTimer inDialog;
    inDialog.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
        m_link.Wake();
        EXPECT_FALSE(m_main->Close());
        EXPECT_EQ(m_main->Murala().Core.List.Count(), 2);
        m_main->Murala().Ticker.ScheduleTick();
        EXPECT_TRUE(m_services.Desktop.Calls.empty());
        for (wxWindow* window : wxTopLevelWindows)
            if (auto* dialog = dynamic_cast<wxDialog*>(window); dialog && dialog->IsModal())
                dialog->EndModal(wxID_CANCEL);
    });
    inDialog.StartOnce(200);
    const wxWeakRef<TfMain> main(m_main);
    m_main->Actions().Execute(aConfiguration);
    EXPECT_TRUE(PumpUntil([&] { return !main; })) << "it was asked to close";
    m_main = nullptr;
    m_messages.AreShown = false;
    Start();
    EXPECT_EQ(m_main->Murala().Core.List.Count(), 3) << "nothing that was queued is lost";
}

TEST_F(MainWindow, TheEndOfTheSessionSavesAndCloses)
{
    Start();
    AddTwo();
    m_main->Murala().Core.Settings.LastChangeDate = 41000.5;
    const wxWeakRef<TfMain> main(m_main);
    m_services.SessionEnd.OnEnd();
    EXPECT_TRUE(PumpUntil([&] { return !main; }));
    m_main = nullptr;
    Start();
    EXPECT_EQ(m_main->Murala().Core.Settings.LastChangeDate, 41000.5);
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
    m_main->Actions().Execute(aAbout);
    EXPECT_EQ(m_messages.Texts, std::vector<std::string>{"There is not enough memory for this."});
    CallLater(*m_main, [] { throw std::runtime_error("the sky fell"); });
    EXPECT_TRUE(PumpUntil(
        [&] { return Control<wxStaticText>("pStatusText").GetLabel() == "the sky fell"; }));
    AddTwo();
    EXPECT_EQ(m_main->Murala().Core.List.Count(), 2);
}

TEST_F(MainWindow, AHiddenStartStaysHiddenAndLoadsNothing)
{
    Start();
    AddTwo();
    m_main->Iconize();
    ASSERT_TRUE(PumpUntil([&] { return m_main->IsIconized(); }));
    Close();
    m_main = new TfMain(m_services.Services(), m_link);
    m_main->Activate({"/apply"});
    EXPECT_TRUE(PumpUntil([&] { return m_main->IsIconized(); }));
    Pump(800);
    EXPECT_TRUE(m_main->IsIconized());
    EXPECT_FALSE(m_services.Desktop.Calls.empty());
    EXPECT_EQ(m_main->Murala().Preview.Picture(20).Width(), 0);
    m_link.Wake();
    EXPECT_TRUE(PumpUntil([&] { return Control<TPreviewPanel>("iPreview").Picture().IsOk(); }));
}

TEST_F(MainWindow, ViewsAndSizesComeBack)
{
    Start();
    for (const TActionId action : {aLargeSize, aViewThumbnails, aThumbLarge})
        m_main->Actions().Execute(action);
    Close();
    Start();
    for (const TActionId action : {aLargeSize, aViewThumbnails, aThumbLarge})
        EXPECT_TRUE(m_main->Actions()[action].Checked()) << m_main->Actions()[action].Name;
    EXPECT_TRUE(Control<wxWindow>("lvThumbnails").IsShown());
    EXPECT_EQ(m_main->Actions()[aNextView].Hint, "View (Thumbnails)");
}

TEST_F(MainWindow, TakesDroppedPicturesAndNothingElse)
{
    Start();
    auto* files = new wxString[3]{wxString::FromUTF8(Picture("A.BMP", 4, 4, 0)),
                                  wxString::FromUTF8(m_services.ProgramFolder + "b.png"),
                                  wxString::FromUTF8(m_services.ProgramFolder + "c.JPG")};
    wxDropFilesEvent drop(wxEVT_DROP_FILES, 3, files);
    m_main->ProcessWindowEvent(drop);
    ASSERT_EQ(m_main->Murala().Core.List.Count(), 2);
    EXPECT_EQ(FileNamePart(m_main->Murala().Core.List.Item(1).FileName()), "c.JPG");
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
    const auto find = [&](const char* name) { return wxWindow::FindWindowByName(name, &dialog); };
    const TScheduleSettings back = dialog.Schedule();
    EXPECT_TRUE(back.Use);
    EXPECT_EQ(back.Frequency, 3);
    EXPECT_EQ(back.Units, suWeek);
    EXPECT_NEAR(back.At, 18.5 / 24, 1e-9);
    EXPECT_EQ(back.On, 4);
    EXPECT_TRUE(find("cbOn")->IsEnabled());
    auto* units = dynamic_cast<wxChoice*>(find("cbUnits"));
    EXPECT_EQ(units->GetStringSelection(), "Weeks");
    units->SetSelection(suHour);
    wxCommandEvent chosen(wxEVT_CHOICE, units->GetId());
    units->ProcessWindowEvent(chosen);
    EXPECT_FALSE(find("cbOn")->IsEnabled());
    EXPECT_FALSE(find("dtpAt")->IsEnabled());
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
    m_main->Actions().Execute(aApplyAndMinimize);
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
    EXPECT_FALSE(m_main->IsShown());
    EXPECT_EQ(m_messages.Texts.size(), 1U);
    m_main->Actions().Execute(aOptions);
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

TEST_F(MainWindow, AHiddenStartStaysHiddenUntilTheIconIsClicked)
{
    m_services.TrayArea.Place = TTrayState::There;
    Start();
    m_services.TrayArea.Events->TrayLeftClick();
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
    Close();
    m_services.TrayArea.Place = TTrayState::Asking;
    m_main = new TfMain(m_services.Services(), m_link);
    m_main->Activate({});
    m_services.TrayArea.Turn(TTrayState::Missing); // there is none: minimised, then
    EXPECT_TRUE(PumpUntil([&] { return m_main->IsShown() && m_main->IsIconized(); }));
}
