#include "MainFixture.h"
#include "uIniFile.h"
#include "uMainCalendar.h"
#include "uSafeFile.h"

#include <fstream>

#include <wx/checklst.h>
#include <wx/radiobox.h>
#include <wx/slider.h>
#include <wx/spinctrl.h>
#include <wx/statbmp.h>

using namespace murala;

namespace
{

class AddOns : public TMainFixture
{
protected:
    TIniFile CalendarFile() { return TIniFile::Load(m_folder.File("mucalendar.ini")); }
};

} // namespace

TEST_F(AddOns, AGradientGoesFromTheDialogToTheSelectedLastItem)
{
    Start();
    AddTwo();
    Select(0);
    Murala().Core.Selection.Item()->TransparentIcons = true;
    InDialog("TfGradientEditor", [](wxDialog& dialog) {
        auto& first = Find<wxSlider>(dialog, "tbStartRed");
        EXPECT_TRUE(PumpUntil([&] { return first.HasFocus(); })) << "the keyboard begins there";
        Slide(dialog, "tbStartGreen", 200);
        Slide(dialog, "tbEndRed", 255);
        Find<wxTextCtrl>(dialog, "eEndBlue").SetValue("128");
        EXPECT_EQ(Find<wxSlider>(dialog, "tbEndBlue").GetValue(), 128);
        Find<wxTextCtrl>(dialog, "eEndBlue").SetValue("999");
        EXPECT_EQ(Find<wxSlider>(dialog, "tbEndBlue").GetValue(), 128) << "no colour's number";
        EXPECT_EQ(Find<wxTextCtrl>(dialog, "eStartGreen").GetValue(), "200");
        auto& direction = Find<wxRadioBox>(dialog, "rgDirection");
        EXPECT_EQ(direction.GetSelection(), 0);
        direction.SetSelection(1);
        Send(direction, wxEVT_RADIOBOX, 1);
        dialog.EndModal(wxID_OK);
    });
    Execute(aNewGradient);
    EXPECT_EQ(m_scriptsRun, 1);
    const TCore& core = Murala().Core;
    ASSERT_EQ(core.List.Count(), 3);
    const TMuWallpaper& item = core.List.Item(2);
    EXPECT_EQ(core.Selection.Rows(), std::vector<int>{2});
    EXPECT_EQ(item.Category, "Gradients");
    EXPECT_EQ(item.DisplayMode, dmStretched);
    EXPECT_TRUE(item.TransparentIcons);
    EXPECT_EQ(FileNamePart(item.FileName()), "GradientBitmap0.bmp");
    const TBitmap strip = LoadImageFile(item.FileName());
    EXPECT_EQ(strip.Size(), (TSize{320, 1}));
    EXPECT_EQ(strip.Row(0)[319] & 0xFFFFFF, ColorToPixel(0x8000FF));
    EXPECT_GT(strip.Row(0)[0] >> 8 & 0xFF, 190U) << "green at the left";
    TMuWallpaperList saved;
    saved.LoadFromFile(m_folder.File(ListFileName));
    EXPECT_TRUE(saved.Item(2).TransparentIcons);

    std::filesystem::remove(NativePath(item.FileName()));
    Select(0);
    InDialog("TfGradientEditor", [](wxDialog& dialog) { dialog.EndModal(wxID_OK); });
    Execute(aNewGradient);
    EXPECT_EQ(core.List.Count(), 3) << "its number is free, its item is there";
    EXPECT_EQ(core.Selection.Rows(), std::vector<int>{2});
}

TEST_F(AddOns, DraggingTheSampleMakesTheNearerColourLighter)
{
    Start();
    InDialog("TfGradientEditor", [](wxDialog& dialog) {
        auto& sample = Find<wxWindow>(dialog, "pDrag");
        const wxSize size = sample.GetClientSize();
        Mouse(sample, wxEVT_LEFT_DOWN, 5, size.y - 2);
        Mouse(sample, wxEVT_MOTION, 5, size.y - 2 - size.y / 2);
        Mouse(sample, wxEVT_LEFT_UP, 5, size.y / 2);
        EXPECT_NEAR(Find<wxSlider>(dialog, "tbEndGreen").GetValue(), 127, 2);
        EXPECT_EQ(Find<wxSlider>(dialog, "tbStartGreen").GetValue(), 0);
        Mouse(sample, wxEVT_MOTION, 5, 0);
        EXPECT_NEAR(Find<wxSlider>(dialog, "tbEndGreen").GetValue(), 127, 2) << "let go";
        Mouse(sample, wxEVT_LEFT_DOWN, 5, 2);
        Mouse(sample, wxEVT_MOTION, 5, -1000);
        EXPECT_EQ(Find<wxTextCtrl>(dialog, "eStartRed").GetValue(), "255");
    });
    Execute(aNewGradient);
    EXPECT_EQ(m_scriptsRun, 1);
    EXPECT_EQ(Murala().Core.List.Count(), 0) << "cancelled";
}

TEST_F(AddOns, AGradientThatCannotBeSavedIsToldAndAddsNothing)
{
    Start();
    AddTwo();
    std::filesystem::remove_all(NativePath(m_folder.Path()));
    // A file in the folder's place refuses whatever is to be written below it.
    std::ofstream(NativePath(m_folder.Path())) << "no folder";
    InDialog("TfGradientEditor", [this](wxDialog& dialog) {
        m_messages.AreShown = false;
        dialog.EndModal(wxID_OK);
    });
    Execute(aNewGradient);
    ASSERT_EQ(m_messages.Texts.size(), 1U);
    EXPECT_NE(m_messages.Texts[0].find("GradientBitmap0.bmp"), std::string::npos)
        << m_messages.Texts[0];
    EXPECT_EQ(Murala().Core.List.Count(), 2);
    EXPECT_TRUE(std::filesystem::is_regular_file(NativePath(m_folder.Path())));
}

TEST_F(AddOns, ThePageSwitchesAndConfiguresTheAddOns)
{
    Start();
    auto& list = Control<wxCheckListBox>("clbAddOns");
    auto& problem = Control<wxStaticText>("lIconBoxProblem");
    Control<wxNotebook>("pcEffect").SetSelection(3);
    EXPECT_FALSE(problem.GetLabel().empty());
    m_services.IconView.HasIcons = true;
    Control<wxNotebook>("pcEffect").SetSelection(0);
    Control<wxNotebook>("pcEffect").SetSelection(3);
    EXPECT_TRUE(problem.GetLabel().empty());
    EXPECT_EQ(list.GetString(0), "Calendar");
    EXPECT_EQ(list.GetString(1), "Icon Box");
    EXPECT_EQ(list.GetSelection(), 0);
    const TMuSettings& settings = Murala().Core.Settings;
    list.Check(1);
    Send(list, wxEVT_CHECKLISTBOX, 1);
    EXPECT_TRUE(PumpUntil([&] { return settings.AddOns.UseIconBox; }));
    EXPECT_FALSE(settings.AddOns.UseCalendar);
    Execute(aCalendar);
    EXPECT_TRUE(list.IsChecked(0)) << "the menu's action shows on the page";
    Execute(aIconBox);
    EXPECT_FALSE(list.IsChecked(1));

    InDialog("TfMainCalendar", [](wxDialog&) {});
    Execute(aConfigureAddOn);
    list.SetSelection(1);
    InDialog("TfIconBoxOptions", [](wxDialog&) {});
    m_messages.AreShown = true;
    Send(list, wxEVT_LISTBOX_DCLICK, 1);
    EXPECT_TRUE(PumpUntil([&] { return m_scriptsRun == 2; }));
    m_messages.AreShown = false;
    Close();
    Start();
    EXPECT_TRUE(Control<wxCheckListBox>("clbAddOns").IsChecked(0));
}

TEST_F(AddOns, TheIconBoxOptionsShowAndGiveBackWhatIsSet)
{
    Start();
    Murala().AddOns.SetIconBox({-102, true, false, 0x332211});
    InDialog("TfIconBoxOptions", [](wxDialog& dialog) {
        auto& border = Find<wxCheckBox>(dialog, "cbBorder");
        auto& select = Find<wxButton>(dialog, "bSelectColor");
        EXPECT_EQ(Find<wxSlider>(dialog, "tbTint").GetValue(), -40);
        EXPECT_EQ(Find<wxStaticText>(dialog, "lTint").GetLabel(), "Tint (-40%)");
        // (100 - 40) / 200 x 255 = 76.5
        EXPECT_EQ(Find<wxPanel>(dialog, "pTint").GetBackgroundColour(), wxColour(76, 76, 76));
        EXPECT_TRUE(select.IsEnabled());
        auto& type = Find<wxRadioBox>(dialog, "rgType");
        type.SetSelection(1);
        Send(type, wxEVT_RADIOBOX, 1);
        EXPECT_FALSE(border.IsEnabled());
        EXPECT_FALSE(select.IsEnabled());
        EXPECT_TRUE(Find<wxStaticBitmap>(dialog, "iJustTintBehindEachIcon").IsShown());
        EXPECT_FALSE(Find<wxStaticBitmap>(dialog, "iBoxAroundAllIcons").IsShown());
        Slide(dialog, "tbTint", 100);
        EXPECT_EQ(Find<wxPanel>(dialog, "pTint").GetBackgroundColour(), wxColour(255, 255, 255));
        dialog.EndModal(wxID_OK);
    });
    Execute(aIconBoxOptions);
    TIconBoxSettings options = Murala().Core.Settings.IconBox;
    EXPECT_EQ(options.Gamma, 255);
    EXPECT_TRUE(options.OnlyIcons);
    EXPECT_TRUE(options.Border) << "greyed out, but kept";
    InDialog("TfIconBoxOptions", [](wxDialog& dialog) { Slide(dialog, "tbTint", 0); });
    Execute(aIconBoxOptions);
    EXPECT_EQ(Murala().Core.Settings.IconBox.Gamma, 255) << "cancelled";
    EXPECT_EQ(m_scriptsRun, 2);
}

TEST_F(AddOns, TheCalendarIsDraggedInBothViewModes)
{
    Picture("Planet02.jpg", 1000, 800, 0x404040);
    Start();
    InDialog("TfMainCalendar", [](wxDialog& window) {
        auto& editor = dynamic_cast<TfMainCalendar&>(window);
        auto& image = Find<wxWindow>(window, "iCalendar");
        EXPECT_EQ(image.GetSize(), wxSize(1000, 800)) << "actual size at first";
        // 320 x 240 in the middle: its corner is at 340, 280.
        Mouse(image, wxEVT_LEFT_DOWN, 345, 290);
        Mouse(image, wxEVT_MOTION, 9000, 9000);
        Mouse(image, wxEVT_LEFT_UP, 9000, 9000);
        EXPECT_EQ(editor.Settings().CalendarX, 100);
        EXPECT_EQ(editor.Settings().CalendarY, 100);
        EXPECT_EQ(Find<wxSlider>(window, "tbXPos").GetValue(), 100);
        // Beside the calendar nothing is grabbed.
        Mouse(image, wxEVT_LEFT_DOWN, 10, 10);
        Mouse(image, wxEVT_MOTION, 500, 500);
        Mouse(image, wxEVT_LEFT_UP, 500, 500);
        EXPECT_EQ(editor.Settings().CalendarX, 100);
        Press(window, "bViewNext");
        const wxSize fitted = image.GetSize();
        EXPECT_NE(fitted, wxSize(1000, 800));
        EXPECT_NEAR(fitted.x * 0.8, fitted.y, 1);
        Mouse(image, wxEVT_MOTION, fitted.x - 2, fitted.y - 2);
        EXPECT_EQ(image.GetToolTipText(), "Click and drag the calendar");
        Mouse(image, wxEVT_LEFT_DOWN, fitted.x - 2, fitted.y - 2);
        Mouse(image, wxEVT_MOTION, -50, fitted.y - 2);
        Mouse(image, wxEVT_LEFT_UP, -50, fitted.y - 2);
        EXPECT_EQ(editor.Settings().CalendarX, 0);
        EXPECT_EQ(editor.Settings().CalendarY, 100);
        Press(window, "bOk");
    });
    Execute(aCalendarOptions);
    ASSERT_EQ(m_scriptsRun, 1);
    EXPECT_EQ(CalendarFile().Read("Options", "CalendarX"), "0");
    EXPECT_EQ(CalendarFile().Read("Options", "CalendarY"), "100");
    EXPECT_EQ(CalendarFile().Read("Options", "ViewMode"), "0");
    EXPECT_EQ(CalendarFile().Read("Options", "BackgroundFileName"), "Planet02.jpg");
}

TEST_F(AddOns, TheEditorsControlsChangeTheCalendarAndCancelForgetsThem)
{
    Picture("Planet02.jpg", 640, 480, 0x404040);
    const std::string before =
        "[Options]\r\nTitleGammaRed=10\r\nBackgroundFileName=Planet02.jpg\r\n";
    m_folder.Write("mucalendar.ini", before);
    Start();
    const auto change = [this](wxDialog& window) {
        auto& editor = dynamic_cast<TfMainCalendar&>(window);
        const auto rendered = [&] { return m_services.Text.Drawn.size(); };
        const TCalendarSettings& settings = editor.Settings();
        auto& title = Find<wxSlider>(window, "tbTitleGamma");
        EXPECT_EQ(title.GetValue(), 0) << "no one value for different channels";
        EXPECT_EQ(Find<wxSlider>(window, "tbTitleGammaRed").GetValue(), 10);
        EXPECT_FALSE(Find<wxSlider>(window, "tbTitleGammaRed").IsShown());
        auto& advanced = Find<wxToggleButton>(window, "bTitleAdvanced");
        advanced.SetValue(true);
        Send(advanced, wxEVT_TOGGLEBUTTON, 1);
        EXPECT_TRUE(Find<wxSlider>(window, "tbTitleGammaRed").IsShown());
        Slide(window, "tbTitleGammaGreen", -7);
        EXPECT_EQ(settings.TitleGamma, (TTint{10, -7, 192}));
        Slide(window, "tbTitleGamma", 77);
        EXPECT_EQ(settings.TitleGamma, (TTint{77, 77, 77}));
        EXPECT_EQ(Find<wxSlider>(window, "tbTitleGammaBlue").GetValue(), 77);
        Slide(window, "tbDayBoxGamma", -255);
        EXPECT_EQ(settings.DayBoxGamma, (TTint{-255, -255, -255}));

        std::size_t drawn = rendered();
        auto& width = Find<wxSpinCtrl>(window, "seCalendarWidth");
        wxSpinEvent spun(wxEVT_SPINCTRL, width.GetId());
        spun.SetPosition(400);
        width.ProcessWindowEvent(spun);
        EXPECT_EQ(settings.CalendarWidth, 400);
        EXPECT_EQ(rendered(), drawn) << "a new size waits for the next drawing";
        auto& image = Find<wxWindow>(window, "iCalendar");
        Mouse(image, wxEVT_MOTION, 320 - 190, 240);
        EXPECT_FALSE(image.GetToolTipText().empty()) << "it can be grabbed in its new size";
        const auto type = [&width](const char* text) {
            wxCommandEvent typed(wxEVT_TEXT, width.GetId());
            typed.SetString(text);
            width.ProcessWindowEvent(typed);
        };
        type("5000");
        type("1600"); // which the control makes of it
        EXPECT_EQ(settings.CalendarWidth, 5000) << "as it was typed";
        type("400");
        Press(window, "bRender");
        EXPECT_GT(rendered(), drawn);

        drawn = rendered();
        Find<wxComboBox>(window, "cbTitleFormat").SetValue("'x' dd/mm/yyyy");
        EXPECT_EQ(settings.TitleFormat, "'x' dd/mm/yyyy");
        ASSERT_GT(rendered(), drawn);
        EXPECT_EQ(m_services.Text.Drawn[drawn].Text, "x 09/12/2025");
        auto& borders = Find<wxCheckBox>(window, "cbBorders");
        borders.SetValue(true);
        Send(borders, wxEVT_CHECKBOX, 1);
        EXPECT_TRUE(settings.CalendarBorders);
        Slide(window, "tbYPos", 30);
        EXPECT_EQ(settings.CalendarY, 30);
    };
    InDialog("TfMainCalendar", change);
    Execute(aCalendarOptions);
    EXPECT_EQ(ReadWholeFile(m_folder.File("mucalendar.ini")), before) << "cancelled";
    InDialog("TfMainCalendar", [&](wxDialog& window) {
        change(window);
        window.Close();
    });
    Execute(aCalendarOptions);
    EXPECT_EQ(ReadWholeFile(m_folder.File("mucalendar.ini")), before) << "closed";
    InDialog("TfMainCalendar", [&](wxDialog& window) {
        change(window);
        Press(window, "bOk");
    });
    Execute(aCalendarOptions);
    EXPECT_EQ(m_scriptsRun, 3);
    const TCalendarSettings saved = LoadCalendarSettings(CalendarFile(), "Options");
    EXPECT_EQ(saved.TitleGamma, (TTint{77, 77, 77}));
    EXPECT_EQ(saved.CalendarWidth, 400);
    EXPECT_EQ(saved.TitleFormat, "'x' dd/mm/yyyy");
    EXPECT_TRUE(saved.CalendarBorders);
    EXPECT_EQ(saved.CalendarY, 30);
}

TEST_F(AddOns, TheEditorWithoutAnyBackgroundAndWithASizeOfNothingStillOpens)
{
    m_folder.Write("mucalendar.ini", "[Options]\r\nCalendarWidth=0\r\nCalendarHeight=-5\r\n"
                                     "BackgroundFileName=/no/where.jpg\r\nViewMode=7\r\n");
    Start();
    InDialog("TfMainCalendar", [](wxDialog& window) {
        EXPECT_EQ(dynamic_cast<TfMainCalendar&>(window).Settings().CalendarWidth, 0)
            << "showing it changes nothing";
        EXPECT_EQ(dynamic_cast<TfMainCalendar&>(window).Settings().CalendarHeight, -5);
        auto& image = Find<wxWindow>(window, "iCalendar");
        Mouse(image, wxEVT_LEFT_DOWN, 5, 5);
        Mouse(image, wxEVT_MOTION, 50, 50);
        Mouse(image, wxEVT_LEFT_UP, 50, 50);
    });
    Execute(aCalendarOptions);
    EXPECT_EQ(m_scriptsRun, 1);
}
