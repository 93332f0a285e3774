// What goes between programs: the instance link, siblings, starting programs.
#include "uEffects.h"
#include "uFileSearch.h"
#include "uInstanceLink.h"
#include "uLocale.h"
#include "uProgramFolder.h"
#include "uScreenSaver.h"
#include "uTestSession.h"
#include "uWindowSocket.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <signal.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <thread>

using namespace murala;

namespace
{

// A child process that does `action` and then handles its messages until it is killed.
class TChild
{
public:
    explicit TChild(const std::function<void()>& action)
    {
        int ends[2];
        EXPECT_EQ(pipe(ends), 0);
        m_process = fork();
        if (m_process == 0) {
            action();
            EXPECT_EQ(write(ends[1], "x", 1), 1);
            for (;;)
                g_main_context_iteration(nullptr, TRUE);
        }
        char done = 0;
        EXPECT_EQ(read(ends[0], &done, 1), 1);
        close(ends[0]);
        close(ends[1]);
    }
    ~TChild() { Kill(); }
    void Kill()
    {
        if (m_process != 0) {
            kill(m_process, SIGKILL);
            waitpid(m_process, nullptr, 0);
        }
        m_process = 0;
    }

private:
    pid_t m_process;
};

TEST(InstanceLink, RunningCopyIsFoundAndWoken)
{
    TTestSession session;
    const auto first = NewInstanceLink();
    const auto second = NewInstanceLink();
    EXPECT_FALSE(second->IsRunning());
    EXPECT_FALSE(second->PostWake());
    int wakes = 0;
    first->Listen(nullptr, [&] { wakes++; });
    EXPECT_TRUE(second->IsRunning());
    EXPECT_TRUE(second->PostWake());
    EXPECT_TRUE(second->PostWake());
    EXPECT_EQ(wakes, 0) << "out of the message loop only";
    EXPECT_TRUE(Eventually([&] { return wakes == 2; }));
}

TEST(InstanceLink, CopyThatWasKilledIsNoneAndDoesNotHoldTheLock)
{
    TTestSession session;
    std::unique_ptr<TInstanceLink> ofChild;
    TChild child([&] {
        ofChild = NewInstanceLink();
        ofChild->Lock();
        ofChild->Listen(nullptr, [] {});
    });
    const auto link = NewInstanceLink();
    EXPECT_TRUE(link->IsRunning());
    std::thread killer([&] {
        g_usleep(100000);
        child.Kill();
    });
    const auto start = g_get_monotonic_time();
    link->Lock();
    EXPECT_GE(g_get_monotonic_time() - start, 90000) << "held until then";
    killer.join();
    EXPECT_FALSE(link->IsRunning());
    link->Listen(nullptr, [] {});
    EXPECT_TRUE(NewInstanceLink()->IsRunning()) << "the old socket is no hindrance";
    link->Unlock();
    NewInstanceLink()->Lock();
}

TEST(InstanceLink, WithoutAFolderThereIsOneInTemporaryFiles)
{
    TTestSession session;
    session.SetVariable("XDG_RUNTIME_DIR", std::nullopt);
    const auto link = NewInstanceLink();
    link->Listen(nullptr, [] {});
    EXPECT_TRUE(NewInstanceLink()->IsRunning());
}

TEST(Siblings, VeyraIsAskedAndTold)
{
    TTestSession session;
    const auto siblings = NewSiblings();
    EXPECT_EQ(siblings->GetVeyraDesktop(), 0);
    siblings->NotifyVeyraWallpaperChange();

    sockaddr_un address{AF_UNIX, {}};
    session.File("TfVeyraMain").copy(address.sun_path, sizeof address.sun_path - 1);
    const int listener = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(listen(listener, 5), 0);
    std::vector<std::string> received;
    std::thread veyra([&] {
        for (const char* answer : {"Veyra Tell Current Desktop 3\n", "nonsense 4\n", "", ""}) {
            const int connection = accept(listener, nullptr, nullptr);
            char text[64] = {};
            EXPECT_GT(recv(connection, text, sizeof text - 1, 0), 0);
            received.emplace_back(text);
            send(connection, answer, std::strlen(answer), MSG_NOSIGNAL);
            close(connection);
        }
    });
    EXPECT_EQ(siblings->GetVeyraDesktop(), 3);
    EXPECT_EQ(siblings->GetVeyraDesktop(), 0) << "nonsense";
    EXPECT_EQ(siblings->GetVeyraDesktop(), 0) << "no answer";
    siblings->NotifyVeyraWallpaperChange();
    veyra.join();
    close(listener);
    EXPECT_EQ(received.at(0), "Veyra Get Current Desktop\n");
    EXPECT_EQ(received.at(3), "Veyra Wallpaper Change\n");
}

TEST(Siblings, RovaneIsClosedByItsMessage)
{
    TTestSession session;
    const auto siblings = NewSiblings();
    const auto loop = NewMessageLoop();
    EXPECT_EQ(siblings->FindRovane(), 0U);
    std::unique_ptr<TWindowSocket> ofChild;
    TChild rovane([&] {
        ofChild = std::make_unique<TWindowSocket>("TfRovane", [](const std::string& message) {
            if (message == "WM_CLOSE")
                _exit(0);
        });
    });
    ASSERT_NE(siblings->FindRovane(), 0U);
    EXPECT_TRUE(CloseWindowAndWait(*siblings, *loop, siblings->FindRovane()));
    EXPECT_EQ(siblings->FindRovane(), 0U);
}

TEST(LinuxEffects, ExecutableFilesAreListedAndStartedOnThePicture)
{
    TTestSession session;
    session.AddRecorder("Snow fall");
    std::filesystem::rename(session.File("bin"), session.File("Plugins"));
    std::ofstream(session.File("Plugins/ReadMe.txt")) << "x";
    std::ofstream(session.File("odd \"name\".jpg")) << "x";
    const auto launcher = NewLauncher();
    const auto siblings = NewSiblings();
    const auto loop = NewMessageLoop();
    TEffects effects(session.ProgramFolder(), *launcher, *siblings, *loop);
    EXPECT_EQ(effects.ListEffects(), std::vector<std::string>{"Snow fall"});
    const std::string picture = session.File("odd \"name\".jpg");
    EXPECT_EQ(effects.RunEffectSettings("Snow fall", picture), TEffectStart::Done);
    EXPECT_EQ(session.Recorded(), (std::vector<std::string>{"Snow fall", picture, "/settings"}));
    EXPECT_EQ(effects.RunEffect("Rain", picture), TEffectStart::NotLaunched);
}

void AddEditor(const TTestSession& session, const std::string& id, const std::string& program)
{
    const std::string folder = session.File(".local/share/applications/");
    std::filesystem::create_directories(folder);
    std::ofstream(folder + id + ".desktop")
        << "[Desktop Entry]\nType=Application\nName=" << id << "\nExec=" << program
        << " %f\nMimeType=image/bmp;inode/directory;\n";
    std::ofstream(session.File(".local/share/applications/mimeapps.list"), std::ios::app)
        << (id == "viewer" ? "[Default Applications]\nimage/bmp=viewer.desktop\n"
                             "inode/directory=viewer.desktop\n[Added Associations]\n"
                             "image/bmp=viewer.desktop;gimp.desktop;\n"
                           : "");
}

TEST(Launcher, DefaultOpensAndAPaintingProgramEdits)
{
    TTestSession session;
    if (session.File(".local/share") != g_get_user_data_dir())
        GTEST_SKIP() << "GLib has remembered the folders of an earlier test in this process";
    for (const char* name : {"viewer", "paint"})
        session.AddRecorder(name);
    AddEditor(session, "viewer", "viewer");
    AddEditor(session, "gimp", "paint");
    const std::string picture = session.File("a'b c.bmp");
    std::ofstream(picture) << "x";
    const auto launcher = NewLauncher();
    const auto wasStarted = [&](const std::string& program, const std::string& file) {
        const bool was = Eventually([&] {
            return session.Recorded() == std::vector<std::string>{program, file};
        });
        DeleteFileIfPresent(session.File("recorded"));
        return was;
    };
    EXPECT_GE(ShellOpen(*launcher, picture), FirstShellSuccess);
    EXPECT_TRUE(wasStarted("viewer", picture));
    EXPECT_GE(ShellEdit(*launcher, picture), FirstShellSuccess);
    EXPECT_TRUE(wasStarted("paint", picture));
    EXPECT_GE(ShellExplore(*launcher, session.File("bin")), FirstShellSuccess);
    EXPECT_TRUE(wasStarted("viewer", session.File("bin")));
    EXPECT_LT(ShellOpen(*launcher, session.File("missing.bmp")), FirstShellSuccess);

    session.SetVariable("XDG_CURRENT_DESKTOP", "XFCE");
    session.AddRecorder("xfdesktop-settings");
    launcher->OpenDisplayProperties();
    EXPECT_TRUE(Eventually(
        [&] { return session.Recorded() == std::vector<std::string>{"xfdesktop-settings"}; }));
}

TEST(ScreenSaver, ServersOwnSaverCounts)
{
    TTestSession session;
    EXPECT_FALSE(NewScreenSaver()->IsRunning()) << "nobody to ask";
    TTestScreen screen(session, "64x48x24");
    const auto saver = NewScreenSaver();
    EXPECT_FALSE(saver->IsRunning());
    XForceScreenSaver(screen.Get(), ScreenSaverActive);
    XSync(screen.Get(), False);
    EXPECT_TRUE(saver->IsRunning());
    XForceScreenSaver(screen.Get(), ScreenSaverReset);
    XSync(screen.Get(), False);
    EXPECT_FALSE(saver->IsRunning());
}

TEST(ScreenSaver, SessionsSaverCountsWhileItIsActive)
{
    TTestSession session;
    TTestBus bus(false);
    const auto saver = NewScreenSaver();
    EXPECT_FALSE(saver->IsRunning());
    bool active = false;
    const TTestService service("org.gnome.ScreenSaver", "/org/gnome/ScreenSaver",
                               "org.gnome.ScreenSaver",
                               "<method name='GetActive'><arg type='b' direction='out'/></method>",
                               [&](GVariant*) { return g_variant_new("(b)", active); });
    EXPECT_FALSE(saver->IsRunning());
    active = true;
    EXPECT_TRUE(saver->IsRunning());
}

TEST(LinuxLocale, UpperCaseKeepsWhatIsNoText)
{
    const auto locale = NewLocale();
    EXPECT_EQ(locale->UpperCase("größe é\xFFz\xC3"), "GRÖßE É\xFFZ\xC3");
    EXPECT_LT(locale->Compare("a", "b"), 0);
    EXPECT_GT(locale->Compare("b", "a"), 0);
    EXPECT_EQ(locale->Compare("a", "a"), 0);
}

TEST(LinuxProgramFolder, IsTheUsersAndIsMade)
{
    TTestSession session;
    EXPECT_EQ(ProgramFolder(), session.File(".local/share/murala/"));
    session.SetVariable("XDG_DATA_HOME", "relative");
    EXPECT_EQ(ProgramFolder(), session.File(".local/share/murala/")) << "no base for it";
    session.SetVariable("XDG_DATA_HOME", session.File("data"));
    EXPECT_EQ(ProgramFolder(), session.File("data/murala/"));
    EXPECT_TRUE(std::filesystem::is_directory(session.File("data/murala")));
}

TEST(FileSearch, BracketsAndStarsInNamesAreNames)
{
    const TTempFolder folder;
    for (const char* name : {"[1]*.jpg", "[1]b.jpg", "1c.jpg", ".d.bmp"})
        std::ofstream(folder.File(name)) << "x";
    EXPECT_EQ(FindFirstName(folder.File("[1]*.jpg")), "[1]*.jpg");
    EXPECT_EQ(FindFirstName(folder.File("[1]?.jpg")), "[1]*.jpg");
    EXPECT_EQ(FindFirstName(folder.File("*c*")), "1c.jpg");
    EXPECT_EQ(FindFirstName(folder.File("*.bmp")), ".d.bmp");
    EXPECT_EQ(FindFirstName(folder.File("[1]")), std::nullopt);
    EXPECT_EQ(FindFirstName(folder.Path() + "/"), std::nullopt);
}

} // namespace
