// What stands in the place of the wallpapers while there are none.
#include "MainFixture.h"

#include "uText.h"

#include <wx/stattext.h>
#include <wx/uiaction.h>

using namespace murala;

namespace
{

class EmptyLibrary : public TMainFixture
{
protected:
    void AddSampleFolder()
    {
        std::filesystem::create_directory(NativePath(m_folder.File("samples")));
        for (const char* name : {"samples/Sea.bmp", "samples/Hill.bmp"})
            Picture(name, 4, 4, 0);
    }
    void StartActive()
    {
        Start();
        m_main->Raise();
        EXPECT_TRUE(PumpUntil([this] { return m_main->IsActive(); }));
        Pump(400); // until the window has settled in its place
    }
    wxWindow* Panel() { return wxWindow::FindWindowByName("pEmptyLibrary", m_main); }
    bool IsPanelShown() { return Panel() != nullptr && Panel()->IsShownOnScreen(); }
    // Whether the panel alone stands there; else, whether the present view does.
    bool IsEmptyShown(bool isEmpty)
    {
        const bool isList = Control<wxWindow>("lvWallpaper").IsShownOnScreen();
        const bool isThumbnails = Control<wxWindow>("lvThumbnails").IsShownOnScreen();
        const bool wantsThumbnails = Murala().Core.Settings.Window.ViewMode == vmThumbnails;
        return IsPanelShown() == isEmpty && isList == (!isEmpty && !wantsThumbnails) &&
               isThumbnails == (!isEmpty && wantsThumbnails);
    }
    bool HasFocus(const char* name)
    {
        return PumpUntil([&] { return wxWindow::FindFocus() == &Control<wxWindow>(name); });
    }
    void Key(int key, int modifiers = wxMOD_NONE)
    {
        m_user.Char(key, modifiers);
        Pump(150);
    }

    wxUIActionSimulator m_user;
};

} // namespace

TEST_F(EmptyLibrary, IsThereWhileThereAreNoWallpapersWhereverTheyComeFrom)
{
    AddSampleFolder();
    Start();
    EXPECT_TRUE(IsEmptyShown(true));
    const std::function<void()> roads[] = {
        [this] { AddTwo(); },
        [this] { m_main->Actions().Execute(aAddSamples); },
        [this] {
            auto* names = new wxString[1]{ToWx(Picture("Dropped.bmp", 4, 4, 0))};
            wxDropFilesEvent event(wxEVT_DROP_FILES, 1, names); // which deletes them
            m_main->ProcessWindowEvent(event);
        },
        [this] {
            m_services.FileQueue.QueueFiles({Picture("HandedOff.bmp", 4, 4, 0)});
            m_link.Wake();
        },
    };
    for (const TActionId view : {aViewList, aViewThumbnails}) {
        m_main->Actions().Execute(view);
        EXPECT_TRUE(IsEmptyShown(true));
        for (const auto& road : roads) {
            road();
            EXPECT_TRUE(PumpUntil([this] { return IsEmptyShown(false); }));
            m_main->Actions().Execute(aNextView);
            EXPECT_TRUE(IsEmptyShown(false));
            m_main->Actions().Execute(aNextView);
            m_main->Actions().Execute(aSelectAll);
            m_main->Actions().Execute(aRemove);
            EXPECT_TRUE(IsEmptyShown(true));
        }
    }
}

TEST_F(EmptyLibrary, IsWorkedByTheKeyboardAlone)
{
    AddSampleFolder();
    StartActive();
    EXPECT_TRUE(HasFocus("bAddPictures"));
    Key(WXK_TAB);
    EXPECT_TRUE(HasFocus("bAddSamples"));
    Key(WXK_SPACE);
    EXPECT_EQ(Murala().Core.List.Count(), 2);
    EXPECT_TRUE(HasFocus("lvWallpaper"));
    Key('A', wxMOD_CONTROL);
    Key(WXK_DELETE);
    EXPECT_EQ(Murala().Core.List.Count(), 0);
    EXPECT_TRUE(HasFocus("bAddPictures"));
    Key('S', wxMOD_ALT);
    EXPECT_TRUE(PumpUntil([this] { return Murala().Core.List.Count() == 2; }));
    EXPECT_TRUE(HasFocus("lvWallpaper"));
    EXPECT_EQ(m_services.Touched(), std::vector<std::string>());
}

// Another copy's files disable the window for a moment; the focus must not stay where nothing is.
TEST_F(EmptyLibrary, TheFocusGoesToTheRowsThatAreHandedOff)
{
    StartActive();
    EXPECT_TRUE(HasFocus("bAddPictures"));
    m_services.FileQueue.QueueFiles({Picture("HandedOff.bmp", 4, 4, 0)});
    m_link.Wake();
    EXPECT_TRUE(HasFocus("lvWallpaper"));
}

TEST_F(EmptyLibrary, ComesInFullSizeWithTheFocusWhenTheLastWallpaperGoes)
{
    TMuWallpaperList list;
    list.Add(std::make_unique<TMuWallpaper>(Picture("A.bmp", 4, 4, 0)));
    list.SaveToFile(m_folder.File(ListFileName));
    StartActive();
    EXPECT_EQ(Panel(), nullptr) << "it costs nothing where it is not needed";
    const wxRect place = List().Window().GetRect();
    EXPECT_TRUE(HasFocus("lvWallpaper"));
    m_main->Actions().Execute(aSelectAll);
    Key(WXK_DELETE);
    ASSERT_TRUE(IsEmptyShown(true));
    EXPECT_EQ(Panel()->GetRect(), place);
    EXPECT_TRUE(HasFocus("bAddPictures"));
}

TEST_F(EmptyLibrary, OffersSamplesOnlyWhereThereAreSomeAndLeavesTheDesktopAlone)
{
    Start();
    EXPECT_TRUE(IsPanelShown());
    EXPECT_EQ(wxWindow::FindWindowByName("bAddSamples", m_main), nullptr);
    EXPECT_NE(wxWindow::FindWindowByName("bAddPictures", m_main), nullptr);
    for (const TAction& action : m_main->Actions().All())
        if (action.Id == aRemove || action.Id == aApply || action.Id == aDisplayNext) {
            EXPECT_FALSE(action.Enabled()) << action.Name;
        }
    Close();
    EXPECT_EQ(m_services.Touched(), std::vector<std::string>());
}

TEST_F(EmptyLibrary, FitsItsTextsIntoANarrowWindow)
{
    AddSampleFolder();
    Start();
    Pump(400); // until the window has settled in its place
    for (const int width : {420, 1200}) {
        m_main->SetClientSize(m_main->FromDIP(wxSize(width, 320)));
        Pump(200);
        for (const wxWindow* child : Panel()->GetChildren()) {
            const bool isText = dynamic_cast<const wxStaticText*>(child) != nullptr;
            const int right = child->GetRect().GetRight();
            EXPECT_TRUE(!isText || right < Panel()->GetClientSize().x)
                << width << ": " << child->GetLabel();
            EXPECT_GE(child->GetPosition().x, 0);
            EXPECT_LE(child->GetBestSize().x, child->GetSize().x);
        }
        // The last button is reached where there is no room for it.
        auto& last = Control<wxWindow>("bAddSamples");
        last.SetFocus();
        EXPECT_TRUE(PumpUntil([&] {
            return last.GetPosition().y >= 0 &&
                   last.GetRect().GetBottom() <= Panel()->GetClientSize().y;
        }));
    }
}

TEST_F(EmptyLibrary, SharesNoLetterWithTheRestOfTheWindow)
{
    AddSampleFolder();
    Start();
    std::map<int, int> letters;
    const std::function<void(const wxWindow&)> collect = [&](const wxWindow& window) {
        for (const wxWindow* child : window.GetChildren()) {
            if (child->IsTopLevel() || !child->IsShownOnScreen())
                continue;
            const wxString label = child->GetLabel();
            if (const int place = label.Find('&'); place != wxNOT_FOUND)
                ++letters[wxToupper(label[static_cast<std::size_t>(place) + 1]).GetValue()];
            collect(*child);
        }
    };
    collect(*m_main);
    EXPECT_EQ(letters.count('P'), 1U);
    EXPECT_EQ(letters.count('S'), 1U);
    for (const char letter : {'F', 'W', 'V', 'O', 'H', 'D', 'T', 'E', 'A'}) // menus and pages
        ++letters[letter];
    for (const auto& [letter, count] : letters)
        EXPECT_EQ(count, 1) << static_cast<char>(letter);
}
