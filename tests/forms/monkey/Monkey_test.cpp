// A user who does anything at any moment. The seed is printed; MURALA_MONKEY_SEED replays it,
// MURALA_MONKEY_SECONDS lets it run longer.
#include "../MainFixture.h"

#include "uThumbnailView.h"

#include <cstdlib>
#include <iostream>
#include <random>
#include <set>

using namespace murala;

namespace
{

constexpr int PictureCount = 400;

int Environment(const char* name, int otherwise)
{
    const char* value = std::getenv(name);
    return value != nullptr ? std::atoi(value) : otherwise;
}

class Monkey : public TMainFixture
{
protected:
    Monkey()
        : m_seed(static_cast<unsigned>(Environment(
              "MURALA_MONKEY_SEED",
              static_cast<int>(std::chrono::system_clock::now().time_since_epoch().count() %
                               1000000)))),
          m_random(m_seed)
    {
        std::cout << "seed " << m_seed << std::endl;
        for (int i = 0; i < PictureCount; ++i)
            m_pictures.push_back(Picture("P" + std::to_string(i) + ".bmp", 4 + i % 40,
                                         30 - i % 40 / 2, static_cast<TColor>(i * 99991)));
        m_pictures.push_back(m_folder.Write("Broken.jpg", "no picture"));
        m_pictures.push_back(m_services.ProgramFolder + "Gr\xC3\xBCn, \"missing\".jpg");
        std::filesystem::create_directory(NativePath(m_folder.File("Plugins")));
        m_services.IconView.HasIcons = true;
    }

    int Below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    bool Chance(int percent) { return Below(100) < percent; }
    std::set<std::string> Names() const
    {
        std::set<std::string> names;
        const TMuWallpaperList& list = m_main->Murala().Core.List;
        for (int row = 0; row < list.Count(); ++row)
            names.insert(list.Item(row).FileName());
        return names;
    }

    void Act()
    {
        static constexpr void (Monkey::*acts[])() = {
            &Monkey::PressAction, &Monkey::PressAction, &Monkey::PressAction, &Monkey::SelectRows,
            &Monkey::PressKey,    &Monkey::PressKey,    &Monkey::ClickCell,   &Monkey::AddSome,
            &Monkey::HandOff,     &Monkey::TurnClock,   &Monkey::Annoy,       &Monkey::ChangeFiles,
            &Monkey::Resize,      &Monkey::Resize,      &Monkey::UseTray,     &Monkey::UseTray,
            &Monkey::DropSome,
        };
        (this->*acts[Below(static_cast<int>(std::size(acts)))])();
        if (Chance(3))
            RestartSometime();
        Pump(Below(5));
    }

    void PressAction()
    {
        const auto action = static_cast<TActionId>(Below(ActionCount));
        if (action == aExit)
            return;
        if (action == aRemove)
            return RemoveSelected();
        m_main->Actions().Execute(action);
        // Its dialog was answered with "Ok".
        if (action == aNewGradient)
            m_expected.merge(Names());
    }

    void RemoveSelected()
    {
        if (Chance(70))
            m_main->Murala().Core.Selection.SelectRows(
                {Below(m_main->Murala().Core.List.Count() + 1)}, -1);
        // What another copy has left waiting is added again.
        const auto& waiting = m_services.FileQueue.Names;
        const std::set<std::string> before = Names();
        m_main->Actions().Execute(aRemove); // or not, while the program works
        const std::set<std::string> left = Names();
        for (const std::string& name : before)
            if (!left.contains(name) && std::ranges::find(waiting, name) == waiting.end())
                m_expected.erase(name);
    }

    void SelectRows()
    {
        std::vector<int> rows;
        for (int row = 0; row < m_main->Murala().Core.List.Count(); ++row)
            if (Chance(20))
                rows.push_back(row);
        m_main->Murala().Core.Selection.SelectRows(rows, Below(PictureCount) - 1);
    }

    wxWindow& View()
    {
        const bool isThumbnails = m_main->Murala().Core.Settings.Window.ViewMode == vmThumbnails;
        return Control<wxWindow>(isThumbnails ? "lvThumbnails" : "lvWallpaper");
    }

    void PressKey()
    {
        static constexpr int keys[] = {WXK_UP,    WXK_DOWN,   WXK_LEFT,     WXK_RIGHT,
                                       WXK_HOME,  WXK_END,    WXK_PAGEDOWN, WXK_F2,
                                       WXK_SPACE, WXK_RETURN, WXK_ESCAPE,   'P'};
        wxKeyEvent key(wxEVT_KEY_DOWN);
        key.m_keyCode = keys[Below(static_cast<int>(std::size(keys)))];
        key.SetShiftDown(Chance(30));
        key.SetControlDown(Chance(20));
        View().ProcessWindowEvent(key);
        wxKeyEvent letter(wxEVT_CHAR);
        letter.m_keyCode = letter.m_uniChar = 'P';
        if (Chance(20))
            View().ProcessWindowEvent(letter);
    }

    void ClickCell()
    {
        wxMouseEvent click(Chance(90) ? wxEVT_LEFT_DOWN : wxEVT_LEFT_DCLICK);
        click.SetPosition({Below(400), Below(400)});
        click.SetShiftDown(Chance(20));
        click.SetControlDown(Chance(20));
        if (m_main->Murala().Core.Settings.Window.ViewMode == vmThumbnails)
            View().ProcessWindowEvent(click);
    }

    std::vector<std::string> SomeFiles()
    {
        std::vector<std::string> files;
        for (const std::string& picture : m_pictures)
            if (Chance(25))
                files.push_back(picture);
        return files;
    }
    void AddSome()
    {
        const auto files = SomeFiles();
        m_main->Murala().Desk.AddFiles(files, Chance(50) ? "" : "Category");
        m_expected.insert(files.begin(), files.end());
    }

    // Sometimes while an effect is being started.
    void HandOff()
    {
        const auto files = SomeFiles();
        m_services.FileQueue.QueueFiles(files);
        m_expected.insert(files.begin(), files.end());
        if (Chance(50))
            return m_services.MessageLoop.Queue.push_back([this] { m_link.Wake(); });
        m_link.Wake();
    }

    void TurnClock()
    {
        m_services.Clock.Time += (Below(4000) - 1000) / 1440.0;
        m_services.ScreenSaver.Running = Chance(10);
        m_main->Murala().Core.Settings.Schedule.Use = Chance(80);
        for (int tick = Below(4); tick > 0; --tick) {
            m_main->Murala().Ticker.ScheduleTick();
            m_main->Murala().Ticker.RefreshTick();
        }
    }

    void Annoy()
    {
        m_services.Desktop.TakesWallpaper = Chance(80);
        m_services.Desktop.AnswersLater = Chance(30);
        if (m_services.Desktop.Answer && Chance(50))
            std::exchange(m_services.Desktop.Answer, nullptr)();
        m_services.Launcher.Result = Chance(70) ? 32 : 0;
        m_services.Siblings.RovaneRuns = Chance(20);
        m_services.Siblings.RovaneCloses = Chance(50);
        m_services.Siblings.VeyraDesktop = Below(3);
        static const std::string effects[] = {"Snow", "rovane", "(none)", ""};
        m_main->Murala().Editor.SetEffect(m_main->Murala().Core.Selection.Items(),
                                          effects[Below(4)]);
        if (Chance(20))
            m_services.MessageLoop.Queue.push_back([this] {
                if (m_main != nullptr)
                    PressAction();
            });
    }

    void ChangeFiles()
    {
        const auto index = static_cast<std::size_t>(Below(PictureCount));
        try {
            if (Chance(50))
                Picture(FileNamePart(m_pictures[index]), 1 + Below(90), 1 + Below(90),
                        static_cast<TColor>(Below(1 << 24)));
            else
                DeleteFileIfPresent(m_pictures[index]);
        } catch (const EFileError&) {
            // On Windows another program cannot change a file that is just being read.
        }
        if (Chance(40))
            Block();
        else
            Unblock();
    }
    // A disk that takes nothing, for a while: a folder stands where the file was.
    void Block()
    {
        static constexpr std::string_view names[] = {ListFileName, SettingsFileName, "Thumbnails",
                                                     "MuralaWallpaper.bmp"};
        Unblock();
        m_blocked = m_folder.File(names[Below(static_cast<int>(std::size(names)))]);
        if (IsReachable(m_blocked))
            std::filesystem::rename(NativePath(m_blocked), NativePath(m_blocked + ".aside"));
        if (m_blocked.ends_with("Thumbnails"))
            m_folder.Write("Thumbnails", "no folder");
        else
            std::filesystem::create_directory(NativePath(m_blocked));
    }
    void Unblock()
    {
        if (m_blocked.empty())
            return;
        const std::string aside = m_blocked + ".aside";
        std::filesystem::remove_all(NativePath(m_blocked));
        if (IsReachable(aside))
            std::filesystem::rename(NativePath(aside), NativePath(m_blocked));
        m_blocked.clear();
    }
    static bool IsReachable(const std::string& path)
    {
        return std::filesystem::exists(NativePath(path));
    }

    // Some of them are no pictures.
    void DropSome()
    {
        std::vector<std::string> files = SomeFiles();
        m_expected.insert(files.begin(), files.end());
        files.push_back(m_folder.File("notes.txt"));
        auto* names = new wxString[files.size()]; // the event's
        std::ranges::transform(files, names, [](const std::string& file) { return ToWx(file); });
        wxDropFilesEvent drop(wxEVT_DROP_FILES, static_cast<int>(files.size()), names);
        m_main->ProcessWindowEvent(drop);
    }

    void UseTray()
    {
        TFakeTrayArea& area = m_services.TrayArea;
        area.Refuses = Chance(10);
        // Always one of the area's own: the window's would wait for the user.
        area.OnMenu = [this](TTrayModel& menu, TPoint) { return SomeTarget(AllEntries(menu)); };
        switch (Below(6)) {
        case 0:
            return area.Turn(static_cast<TTrayState>(Below(3)));
        case 1:
            return area.Restart();
        case 2:
            area.Events->TrayMenuOpens();
            return area.Events->TrayMenuChosen(SomeTarget(area.Told));
        case 3:
            return area.Events->TrayRightClick({Below(2000), Below(2000)});
        default:
            return area.Events->TrayLeftClick();
        }
    }
    // Any of them but the end of the program; a separator: nothing was chosen.
    TMenuTarget SomeTarget(const TMenuEntries& entries)
    {
        if (entries.empty() || Chance(10))
            return {};
        const TMenuTarget& target =
            entries[static_cast<std::size_t>(Below(static_cast<int>(entries.size())))].Target;
        return target == TMenuTarget(TMenuAction{aExit}) ? TMenuTarget() : target;
    }

    void Resize()
    {
        m_main->SetSize(m_main->GetMinSize() + wxSize(Below(600), Below(400)));
        if (Chance(10))
            m_main->Iconize(Chance(50));
    }

    void RestartSometime()
    {
        Unblock();
        m_services.TrayArea.Draws = Chance(50);
        while (!m_services.MessageLoop.Queue.empty())
            m_services.MessageLoop.HandlePendingMessages();
        if (Chance(50)) {
            Close();
        } else {
            const wxWeakRef<TfMain> main(m_main);
            m_services.SessionEnd.OnEnd();
            ASSERT_TRUE(PumpUntil([&] { return !main; }));
            m_main = nullptr;
        }
        Start(Chance(50) ? std::vector<std::string>{"/apply"} : std::vector<std::string>{});
        const std::set<std::string> names = Names();
        std::vector<std::string> differences;
        std::ranges::set_symmetric_difference(names, m_expected, std::back_inserter(differences));
        ASSERT_TRUE(differences.empty())
            << "seed " << m_seed << ": lost or came back: " << testing::PrintToString(differences);
    }

    unsigned m_seed;
    std::mt19937 m_random;
    std::vector<std::string> m_pictures;
    std::set<std::string> m_expected;
    std::string m_blocked; // what the disk does not take
};

} // namespace

TEST_F(Monkey, LosesNoWallpaper)
{
    const auto end = std::chrono::steady_clock::now() +
                     std::chrono::seconds(Environment("MURALA_MONKEY_SECONDS", 20));
    Start();
    int acts = 0;
    while (std::chrono::steady_clock::now() < end && !HasFatalFailure()) {
        Act();
        ++acts;
    }
    RestartSometime();
    std::cout << acts << " acts" << std::endl;
}
