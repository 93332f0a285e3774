// A day with a library of 2,400 pictures, by mouse and keys. After each step the window comes to
// rest.
#include "MainFixture.h"

#include "uProcessorTime.h"

#include <wx/tooltip.h>
#include <wx/uiaction.h>

using namespace murala;

namespace
{

constexpr int RowCount = 2400;
// Milliseconds: so soon it rests, which is so little processor time in so long.
constexpr int Patience = 2000, Rest = 200, RestingTime = 50;

class LargeLibrary : public TMainFixture, public testing::WithParamInterface<TActionId>
{
protected:
    LargeLibrary()
    {
        const wxSize size = wxWindow::FromDIP(wxSize(1000, 720), nullptr);
        m_folder.Write("Murala.ini", FormatText("[Main]\nWidth=%s\nHeight=%s\nThumbnailSize=0\n",
                                                {std::to_string(size.x), std::to_string(size.y)}));
        const std::string first = Picture("Picture.bmp", 40, 30, 0x204060);
        TMuWallpaperList list;
        for (int i = 0; i < RowCount; ++i) {
            const std::string name = m_folder.File("Picture" + std::to_string(1000 + i) + ".bmp");
            if (i % 400 != 7) // some are missing
                std::filesystem::create_hard_link(NativePath(first), NativePath(name));
            auto item = std::make_unique<TMuWallpaper>(name);
            item->Title = FileNamePart(name);
            list.Add(std::move(item));
        }
        list.SaveToFile(m_folder.File(ListFileName));
        m_spare = first;
        wxToolTip::Enable(false); // one under the mouse would take the click
    }
    ~LargeLibrary() override { wxToolTip::Enable(true); }

    TSelection& Selection() { return Murala().Core.Selection; }
    int Count() { return Murala().Core.List.Count(); }
    bool IsThumbnails() { return GetParam() == aViewThumbnails; }
    TMuThumbnailView& Thumbnails()
    {
        return dynamic_cast<TMuThumbnailView&>(Control<wxWindow>("lvThumbnails"));
    }
    TWallpaperView& View()
    {
        if (Murala().Core.Settings.Window.ViewMode == vmThumbnails)
            return Thumbnails();
        return List();
    }
    std::size_t MissingThumbnails()
    {
        if (!Thumbnails().IsShownOnScreen())
            return 0;
        const std::vector<int> rows = Thumbnails().VisibleRows();
        return static_cast<std::size_t>(std::ranges::count_if(rows, [this](int row) {
            const TMuWallpaper& item = Murala().Core.List.Item(row);
            return !item.Thumbnail && FileExists(item.FileName());
        }));
    }

    // The program's own event loop runs for a while; the processor time that it took.
    static double Live(int milliseconds)
    {
        const double before = ProcessorTime();
        wxEventLoop loop;
        wxTimer timer;
        timer.Bind(wxEVT_TIMER, [&loop](wxTimerEvent&) { loop.Exit(); });
        timer.StartOnce(milliseconds);
        loop.Run();
        return ProcessorTime() - before;
    }

    void ExpectRest(const std::string& step)
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(Patience);
        double busy = Live(Rest);
        while ((busy > RestingTime || MissingThumbnails() > 0) &&
               std::chrono::steady_clock::now() < end)
            busy = Live(Rest);
        EXPECT_LE(busy, RestingTime) << step;
        EXPECT_EQ(MissingThumbnails(), 0U) << step;
        for (const wxWindow* window : wxTopLevelWindows)
            EXPECT_TRUE(window == m_main || !window->IsShown()) << step << window->GetName();
        EXPECT_EQ(m_messages.Texts, std::vector<std::string>()) << step;
    }

    // Another copy leaves a file.
    void HandOff()
    {
        const std::string name =
            m_folder.File("HandedOff" + std::to_string(m_handedOff++) + ".bmp");
        std::filesystem::create_hard_link(NativePath(m_spare), NativePath(name));
        m_services.FileQueue.QueueFiles({name});
        m_link.Wake();
    }

    void TakeFocus()
    {
        if (!m_main->IsActive())
            m_main->Raise();
        View().Window().SetFocus();
        EXPECT_TRUE(PumpUntil(
            [this] { return m_main->IsActive() && wxWindow::FindFocus() == &View().Window(); }));
    }
    void Key(int key, int modifiers = wxMOD_NONE, int times = 1)
    {
        TakeFocus();
        for (; times > 0; --times) {
            m_user.Char(key, modifiers);
            Pump(60);
        }
        Pump(100);
    }
    void Click(int row, int modifierKey = 0)
    {
        TakeFocus();
        const wxPoint place = View().RowRect(row).GetTopLeft() + wxPoint(30, 10);
        m_user.MouseMove(View().Window().ClientToScreen(place));
        Pump(50);
        if (modifierKey != 0)
            m_user.KeyDown(modifierKey);
        m_user.MouseClick();
        Pump(100);
        if (modifierKey != 0)
            m_user.KeyUp(modifierKey);
        Pump(100);
    }
    void Wheel(int notches)
    {
        wxMouseEvent wheel(wxEVT_MOUSEWHEEL);
        wheel.m_wheelDelta = 120;
        wheel.m_wheelRotation = notches < 0 ? -120 : 120;
        wheel.m_linesPerAction = 3;
        for (int i = 0; i < std::abs(notches); ++i) {
            View().Window().ProcessWindowEvent(wheel);
            Pump(10);
        }
    }
    void ScrollTo(int row)
    {
        View().BringIntoView(row);
        EXPECT_TRUE(PumpUntil([=, this] { return View().RowRect(row).height > 0; }));
        Pump(100);
    }
    std::vector<int> Rows() { return Selection().Rows(); }

    std::string m_spare;
    int m_handedOff = 0;
    wxUIActionSimulator m_user;
};

} // namespace

TEST_P(LargeLibrary, LivesWithItsUserAndRestsAfterEachStep)
{
    Start();
    Execute(GetParam());
    m_main->Raise();
    PumpUntil([this] { return m_main->IsActive(); });
    const int next = IsThumbnails() ? WXK_RIGHT : WXK_DOWN;
    const struct {
        const char* Name;
        std::function<void()> Do;
    } steps[] = {
        {"wheel", [&] { Wheel(-60); }},
        {"wheel back", [&] { Wheel(30); }},
        {"page", [&] { Key(WXK_PAGEDOWN, wxMOD_NONE, 4); }},
        {"end", [&] { Key(WXK_END); }},
        {"large", [&] { Execute(aThumbLarge); }},
        {"hand-off at the end", [&] { HandOff(); }},
        {"small", [&] { Execute(aThumbSmall); }},
        {"other view", [&] { Execute(aNextView); }},
        {"this view", [&] { Execute(aNextView); }},
        {"home",
         [&] {
             Key(WXK_HOME);
             EXPECT_EQ(Rows(), std::vector<int>{0});
         }},
        {"range by mouse",
         [&] {
             Click(2);
             Click(9, WXK_SHIFT);
             EXPECT_EQ(Rows(), (std::vector<int>{2, 3, 4, 5, 6, 7, 8, 9}));
             Click(4, WXK_CONTROL);
             EXPECT_EQ(Rows(), (std::vector<int>{2, 3, 5, 6, 7, 8, 9}));
         }},
        {"remove by key",
         [&] {
             Key(WXK_DELETE);
             EXPECT_EQ(Count(), RowCount + 1 - 7);
             EXPECT_EQ(Rows(), std::vector<int>{3});
         }},
        {"all but one, far below",
         [&] {
             Key('A', wxMOD_CONTROL);
             EXPECT_EQ(Rows().size(), static_cast<std::size_t>(Count()));
             ScrollTo(1500);
             const wxRect place = View().RowRect(1500);
             Click(1500, WXK_CONTROL);
             EXPECT_EQ(Rows().size(), static_cast<std::size_t>(Count() - 1));
             EXPECT_EQ(Selection().FocusedRow(), 1500);
             EXPECT_EQ(View().RowRect(1500), place) << "it is thrown back";
             HandOff(); // selects and shows what came
         }},
        {"focus by keys",
         [&] {
             ScrollTo(1500);
             Click(1500);
             Key(next, wxMOD_CONTROL, 2);
             EXPECT_EQ(Rows(), std::vector<int>{1500});
             EXPECT_EQ(Selection().FocusedRow(), 1502);
             Key(WXK_SPACE, wxMOD_CONTROL);
             EXPECT_EQ(Rows(), (std::vector<int>{1500, 1502}));
             Key(next, wxMOD_SHIFT, 2);
             EXPECT_EQ(Rows(), (std::vector<int>{1502, 1503, 1504}));
             Key(next, wxMOD_CONTROL);
             Key(WXK_SPACE);
             EXPECT_EQ(Rows(), std::vector<int>{1505});
             EXPECT_TRUE(m_services.Desktop.Calls.empty()) << "a blank is no Enter";
         }},
        {"title by keys",
         [&] {
             Key(WXK_F2);
             EXPECT_TRUE(PumpUntil([this] { return View().IsEditing(); }));
             m_user.Text("New");
             m_user.Char(WXK_RETURN);
             EXPECT_TRUE(
                 PumpUntil([this] { return Murala().Core.List.Item(1505).Title == "New"; }));
         }},
        {"titles anew",
         [&] {
             Selection().SelectAll();
             Murala().Desk.Retitle(Selection().Items());
             EXPECT_EQ(Murala().Core.List.Item(1505).Title, "Picture2512");
         }},
        {"remove by menu",
         [&] {
             ScrollTo(1500);
             Click(1500);
             Key(next, wxMOD_SHIFT, 3);
             EXPECT_EQ(Rows(), (std::vector<int>{1500, 1501, 1502, 1503}));
             const int before = Count();
             m_main->ProcessCommand(m_main->GetMenuBar()->FindMenuItem("Wallpaper", "Remove"));
             HandOff();
             EXPECT_TRUE(PumpUntil([&] { return Count() == before - 4 + 1; })) << Count() - before;
         }},
        {"remove all by keys",
         [&] {
             Key('A', wxMOD_CONTROL);
             Key(WXK_DELETE);
             EXPECT_TRUE(PumpUntil([this] { return Count() == 0; }, 20000));
         }},
    };
    for (const auto& step : steps) {
        step.Do();
        ExpectRest(step.Name);
    }
    EXPECT_EQ(std::filesystem::file_size(NativePath(m_folder.File(ListFileName))), 0U);
}

INSTANTIATE_TEST_SUITE_P(Views, LargeLibrary, testing::Values(aViewList, aViewThumbnails));
