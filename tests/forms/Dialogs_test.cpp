#include "MainFixture.h"
#include "uConfiguration.h"
#include "uFileDialogs.h"
#include "uPictureFile.h"
#include "uText.h"
#include "uWindowSystem.h"
#include "uWxFont.h"
#include "uWxText.h"

#include <map>

#include <wx/checkbox.h>
#include <wx/display.h>
#include <wx/fontdata.h>
#include <wx/notebook.h>
#include <wx/radiobox.h>
#include <wx/spinctrl.h>
#include <wx/statbox.h>
#include <wx/uiaction.h>

using namespace murala;

namespace
{

using Dialogs = TMainFixture;

// The letter behind "&", in lower case; 0 for none.
int LetterOf(const wxString& label)
{
    wxString text = label;
    text.Replace("&&", "");
    const int place = text.Find('&');
    return place == wxNOT_FOUND
               ? 0
               : static_cast<int>(wxTolower(text[static_cast<std::size_t>(place) + 1]).GetValue());
}

// The letters of what is shown; a page that lies behind another one is not.
void CollectLetters(const wxWindow& window, std::map<int, std::vector<std::string>>& letters)
{
    for (const wxWindow* child : window.GetChildren()) {
        if (!child->IsShown() || child->IsTopLevel())
            continue;
        if (const int letter = LetterOf(child->GetLabel()))
            letters[letter].push_back(child->GetLabel().utf8_string());
        CollectLetters(*child, letters);
    }
}

void ExpectEachLetterOnce(const wxWindow& dialog, const std::vector<std::string>& tabs = {})
{
    std::map<int, std::vector<std::string>> letters;
    for (const std::string& tab : tabs)
        letters[LetterOf(ToWx(tab))].push_back(tab);
    CollectLetters(dialog, letters);
    for (const auto& [letter, labels] : letters)
        EXPECT_EQ(labels.size(), 1U) << dialog.GetName() << ": " << testing::PrintToString(labels);
}

} // namespace

TEST_F(Dialogs, NoLetterStandsForTwoThings)
{
    m_services.IconView.HasIcons = true;
    Start();
    AddTwo();
    Select(0);
    const std::vector<std::string> pages{"Start&up", "Sc&hedule", "&Titles", "&Wallpapers",
                                         "Thum&bnails"};
    InDialog("TfConfiguration", [&](wxDialog& dialog) {
        auto& book = Find<wxNotebook>(dialog, "pcPages");
        for (std::size_t page = 0; page < book.GetPageCount(); ++page) {
            book.SetSelection(page);
            Pump(50);
            ExpectEachLetterOnce(dialog, pages);
        }
    });
    Execute(aConfiguration);
    for (const auto& [action, name] : {std::pair(aNewGradient, "TfGradientEditor"),
                                       std::pair(aIconBoxOptions, "TfIconBoxOptions"),
                                       std::pair(aChangeCategory, "TfCategory")}) {
        InDialog(name, [](wxDialog& dialog) { ExpectEachLetterOnce(dialog); });
        Execute(action);
    }
    InDialog("TfMainCalendar", [](wxDialog& dialog) {
        auto& book = Find<wxNotebook>(dialog, "pcCalendar");
        for (std::size_t page = 0; page < book.GetPageCount(); ++page) {
            book.SetSelection(page);
            ExpectEachLetterOnce(dialog, {"&Size", "&Features", "&Blending"});
        }
    });
    Execute(aCalendarOptions);
    EXPECT_EQ(m_scriptsRun, 5);
}

TEST_F(Dialogs, ALetterLeadsToWhatItNames)
{
    Start();
    InDialog("TfGradientEditor", [](wxDialog& dialog) {
        dialog.Raise();
        PumpUntil([&] { return dialog.IsActive(); });
        Find<wxSlider>(dialog, "tbStartRed").SetValue(17);
        wxUIActionSimulator keys;
        const auto leadsTo = [&](int letter, const char* name) {
            keys.Char(letter, wxMOD_ALT);
            auto& control = Find<wxWindow>(dialog, name);
            return PumpUntil([&] {
                const wxWindow* focus = wxWindow::FindFocus();
                return focus == &control || (focus != nullptr && focus->GetParent() == &control);
            });
        };
        EXPECT_TRUE(leadsTo('E', "tbEndRed"));
        EXPECT_TRUE(leadsTo('S', "tbStartRed"));
        EXPECT_TRUE(leadsTo('D', "rgDirection"));
        keys.Char('C', wxMOD_ALT);
        Pump(100);
        EXPECT_TRUE(dialog.IsModal()) << "Cancel has no letter";
        EXPECT_EQ(Find<wxSlider>(dialog, "tbStartRed").GetValue(), 17);
        EXPECT_EQ(Find<wxRadioBox>(dialog, "rgDirection").GetSelection(), 0);
    });
    Execute(aNewGradient);
    EXPECT_EQ(m_scriptsRun, 1);
}

TEST_F(Dialogs, ALetterThatStandsTwiceLeadsToOneAfterTheOther)
{
    Start();
    AddTwo();
    Select(0);
    Murala().Editor.SetGammaStyle(Murala().Core.Selection.Items(), gsHorizontal);
    Control<wxNotebook>("pcEffect").SetSelection(1);
    m_main->Raise();
    PumpUntil([&] { return m_main->IsActive(); });
    auto& start = Control<wxSlider>("tbGammaRedStart");
    auto& end = Control<wxSlider>("tbGammaRedEnd");
    Control<wxSlider>("tbGammaGreenStart").SetFocus();
    Pump(100);
    wxUIActionSimulator keys;
    for (wxSlider* bar : {&start, &end, &start}) {
        keys.Char('R', wxMOD_ALT);
        EXPECT_TRUE(PumpUntil([=] { return bar->HasFocus(); })) << bar->GetName();
    }
}

TEST_F(Dialogs, AFileToSaveHasItsEndingBeforeTheUserIsAskedToReplaceIt)
{
    const std::string kept = m_folder.Write("kept.bmp", "a picture of the user's");
    std::vector<std::string> typed{m_folder.File("v1.2"), m_folder.File("kept")}, questions;
    const auto ask = [&](const std::string& before) -> std::optional<std::string> {
        EXPECT_EQ(before, questions.empty() || typed.empty() ? "" : kept);
        if (typed.empty())
            return std::nullopt;
        const std::string path = typed.back();
        typed.pop_back();
        return path;
    };
    const auto refuse = [&](const std::string& path) {
        questions.push_back(path);
        return false;
    };
    EXPECT_EQ(ChooseFileToSave(".bmp", ask, refuse), m_folder.File("v1.2.bmp"));
    EXPECT_EQ(questions, std::vector<std::string>{kept});
    EXPECT_EQ(ChooseFileToSave(".bmp", ask, refuse), std::nullopt) << "cancelled";
}

TEST_F(Dialogs, TheFileDialogsOfferEveryFormat)
{
    EXPECT_EQ(OpenFilter(PictureFileKinds()),
              AnyCaseFilter("All (*.jpg;*.jpeg;*.bmp)|*.jpg;*.jpeg;*.bmp|JPEG Image File (*.jpg)|"
                            "*.jpg|JPEG Image File (*.jpeg)|*.jpeg|Bitmaps (*.bmp)|*.bmp"));
    EXPECT_EQ(
        OpenFilter(BackgroundFileKinds()),
        AnyCaseFilter("All (*.jpg;*.jpeg;*.bmp;*.ico;*.emf;*.wmf)|*.jpg;*.jpeg;*.bmp;*.ico;*.emf;"
                      "*.wmf|JPEG Image File (*.jpg)|*.jpg|JPEG Image File (*.jpeg)|*.jpeg|Bitmaps "
                      "(*.bmp)|*.bmp|Icons (*.ico)|*.ico|Enhanced Metafiles (*.emf)|*.emf|"
                      "Metafiles (*.wmf)|*.wmf"));
}

TEST_F(Dialogs, TheWheelScrollsThePageUnlessTheControlHasTheFocus)
{
    m_folder.Write("Murala.ini", "[Main]\r\nHeight=420\r\nWidth=640\r\n");
    Start();
    AddTwo();
    Select(0);
    Murala().Editor.SetGammaStyle(Murala().Core.Selection.Items(), gsHorizontal);
    auto& book = Control<wxNotebook>("pcEffect");
    book.SetSelection(1);
    Pump(100);
    auto& page = dynamic_cast<wxScrolledWindow&>(*book.GetCurrentPage());
    ASSERT_GT(page.GetVirtualSize().y, page.GetClientSize().y + 40);
    auto& bar = Control<wxSlider>("tbGammaRedStart");
    const auto turn = [&bar] {
        wxMouseEvent wheel(wxEVT_MOUSEWHEEL);
        wheel.SetEventObject(&bar);
        wheel.m_wheelRotation = -120;
        wheel.m_wheelDelta = 120;
        wheel.m_linesPerAction = 3;
        return bar.ProcessWindowEvent(wheel);
    };
    EXPECT_TRUE(turn()) << "the toolkit does not see it";
    EXPECT_GT(page.GetViewStart().y, 0);
    bar.SetFocus();
    PumpUntil([&] { return bar.HasFocus(); });
    page.Scroll(0, 0);
    turn();
    EXPECT_EQ(page.GetViewStart().y, 0) << "the bar moves";
}

TEST_F(Dialogs, AFontThatIsMissingIsKeptWhenAnotherSizeIsChosen)
{
    const TMuFont before{"Nowhere Sans", 12};
    wxFontData chosen;
    wxFont font = ToWxFont(before);
    font.SetPointSize(20);
    chosen.SetChosenFont(font);
    EXPECT_EQ(FromWxFont(chosen, before).Name, "Nowhere Sans");
    EXPECT_EQ(FromWxFont(chosen, before).Size, 20);
    EXPECT_EQ(FromWxFont(chosen, {"Another", 12}).Size, 20);
}

TEST_F(Dialogs, AWindowFromALargerScreenIsBroughtOntoThisOne)
{
    m_folder.Write("Murala.ini", "[Main]\r\nWidth=5000\r\nHeight=4000\r\nLeft=-14\r\nTop=-14\r\n");
    Start();
    Pump(500);
    const wxRect area = wxDisplay().GetClientArea();
    EXPECT_TRUE(wxRect(area).Inflate(2).Contains(m_main->GetScreenRect())) // as the manager has it
        << m_main->GetScreenRect().x << " " << m_main->GetScreenRect().y << " "
        << m_main->GetSize().x << " " << m_main->GetSize().y << " of " << area.width << " "
        << area.height;
    EXPECT_LT(m_main->GetMinSize().x, 640);
    EXPECT_LT(m_main->GetMinSize().y, 480);
}

TEST_F(Dialogs, EveryBoxOfTheConfigurationChangesTheKeyOfItsName)
{
    m_folder.Write("Murala.ini", "[Main]\r\nMaxTitleLength=700\r\n");
    Start();
    Murala().Storage.SaveSettings(AllSaveFlags);
    const auto stored = [this] {
        TIniPairs keys =
            TIniFile::Load(m_services.ProgramFolder + "Murala.ini").ReadSection("Main");
        std::erase_if(keys, [](const auto& key) { return key.first == "LastChangeDate"; });
        keys.emplace_back("StartAtStartup", m_services.Autostart.Commands.empty() ? "0" : "1");
        keys.emplace_back("ShellIntegration", m_services.FileMenu.Commands.empty() ? "0" : "1");
        return keys;
    };
    std::vector<std::string> names;
    const auto turn = [&](std::size_t index) {
        TfConfiguration dialog(m_main, Murala(), m_main->Actions());
        std::vector<wxCheckBox*> boxes;
        const std::function<void(wxWindow&)> collect = [&](wxWindow& window) {
            for (wxWindow* child : window.GetChildren()) {
                if (auto* box = dynamic_cast<wxCheckBox*>(child))
                    boxes.push_back(box);
                collect(*child);
            }
        };
        collect(dialog);
        if (index >= boxes.size())
            return false;
        boxes[index]->SetValue(!boxes[index]->GetValue());
        names.push_back(boxes[index]->GetName().Mid(2).utf8_string());
        for (const char* action : {"Apply", "Next"}) // whose keys have another name
            names.back() =
                ReplaceAll(names.back(), std::string(action) + "At", std::string(action) + "On");
        Murala().Configurator.Confirm(dialog.Configuration());
        return true;
    };
    for (TIniPairs expected = stored(); turn(names.size()); expected = stored()) {
        const auto key = std::ranges::find(expected, names.back(), &TIniPairs::value_type::first);
        ASSERT_NE(key, expected.end()) << names.back();
        key->second = key->second == "1" ? "0" : "1";
        EXPECT_EQ(stored(), expected) << names.back();
    }
    EXPECT_EQ(names.size(), 10U);
    EXPECT_EQ(Murala().Core.Settings.Preferences.Titles.MaxTitleLength, 700)
        << "the control cannot show it";
}
