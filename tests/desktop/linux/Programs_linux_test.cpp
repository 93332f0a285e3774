// What goes between programs: the instance link, siblings, starting programs.
#include "uEffects.h"
#include "uFileMenu.h"
#include "uFileSearch.h"
#include "uInstanceLink.h"
#include "uLocaleTexts.h"
#include "uProcessMemory.h"
#include "uProcessPriority.h"
#include "uScreenSaver.h"
#include "uTestSession.h"
#include "uWindowSocket.h"

#include <X11/Xatom.h>

#include <gtest/gtest.h>

#include <csignal>
#include <cstring>
#include <malloc.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <thread>

using namespace murala;

namespace
{

// A socket in the place of a program's window.
TDescriptor ListenAs(const std::string& file, int backlog)
{
    sockaddr_un address{AF_UNIX, {}};
    file.copy(address.sun_path, sizeof address.sun_path - 1);
    TDescriptor listener(socket(AF_UNIX, SOCK_STREAM, 0));
    EXPECT_EQ(bind(listener.Get(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(listen(listener.Get(), backlog), 0);
    return listener;
}

TEST(InstanceLink, RunningCopyIsFoundAndWoken)
{
    TTestSession session;
    // The second is a cron job's now and then; a long path is none too long.
    for (const bool hasRuntimeFolder : {true, false}) {
        session.SetVariable("XDG_DATA_HOME", session.File(std::string(120, 'l')));
        const auto first = NewInstanceLink();
        if (!hasRuntimeFolder)
            session.SetVariable("XDG_RUNTIME_DIR", std::nullopt);
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
}

TEST(InstanceLink, CopyThatHangsIsNotWaitedFor)
{
    const TTestSession session;
    const auto link = NewInstanceLink();
    EXPECT_FALSE(link->IsRunning());
    const TDescriptor hanging = ListenAs(session.File(".local/share/murala/TfMain"), 0);
    for (int start = 0; start < 3; start++) {
        EXPECT_TRUE(link->IsRunning()) << start;
        EXPECT_TRUE(link->PostWake()) << start;
    }
}

TEST(InstanceLink, CopyThatWasKilledIsNoneAndDoesNotHoldTheLock)
{
    const TTestSession session;
    const auto link = NewInstanceLink();
    const pid_t child = fork();
    if (child == 0) {
        link->Lock();
        link->Listen(nullptr, [] {});
        pause();
    }
    ASSERT_TRUE(Eventually([&] { return link->IsRunning(); }));
    std::thread killer([&] {
        g_usleep(100000);
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
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

TEST(Siblings, VeyraIsAskedAndTold)
{
    const TTestSession session;
    const auto siblings = NewSiblings();
    EXPECT_EQ(siblings->GetVeyraDesktop(), 0);
    siblings->NotifyVeyraWallpaperChange();

    const TDescriptor listener = ListenAs(session.File("TfVeyraMain"), 5);
    std::string received;
    std::thread veyra([&] {
        for (const char* answer : {"Veyra Tell Current Desktop 3\n", "nonsense 4\n", ""}) {
            const TDescriptor connection(accept(listener.Get(), nullptr, nullptr));
            char text[64] = {};
            EXPECT_GT(recv(connection.Get(), text, sizeof text - 1, 0), 0);
            received += text;
            send(connection.Get(), answer, std::strlen(answer), MSG_NOSIGNAL);
        }
    });
    for (const int expected : {3, 0})
        EXPECT_EQ(siblings->GetVeyraDesktop(), expected);
    siblings->NotifyVeyraWallpaperChange();
    veyra.join();
    EXPECT_EQ(received, "Veyra Get Current Desktop\nVeyra Get Current Desktop\n"
                        "Veyra Wallpaper Change\n");
}

TEST(Siblings, RovaneIsClosedByItsMessage)
{
    const TTestSession session;
    const auto siblings = NewSiblings();
    EXPECT_EQ(siblings->FindRovane(), 0U);
    {
        std::string received;
        const TWindowSocket rovane(session.File("TfRovane"),
                                   [&](const std::string& message) { received = message; });
        siblings->PostClose(siblings->FindRovane());
        EXPECT_TRUE(Eventually([&] { return received == "WM_CLOSE"; }));
        EXPECT_TRUE(siblings->IsWindow(siblings->FindRovane()));
    }
    EXPECT_EQ(siblings->FindRovane(), 0U);
}

TEST(LinuxEffects, ExecutableFilesAreListedAndStartedOnThePicture)
{
    TTestSession session;
    session.AddRecorder("Snow fall");
    std::filesystem::rename(session.File("bin"), session.File("Plugins"));
    session.Write("Plugins/ReadMe.txt", "x");
    const std::string picture = session.SavePicture();
    const auto launcher = NewLauncher();
    const auto siblings = NewSiblings();
    const auto loop = NewMessageLoop();
    TEffects effects(session.Path(), *launcher, *siblings, *loop);
    EXPECT_EQ(effects.ListEffects(), TWords{"Snow fall"});
    EXPECT_EQ(effects.RunEffectSettings("Snow fall", picture), TEffectStart::Done);
    EXPECT_EQ(session.Recorded(), (TWords{"Snow fall", picture, "/settings"}));
    for (const char* name : {"Rain", "ReadMe.txt"}) // the second may not be executed
        EXPECT_EQ(effects.RunEffect(name, picture), TEffectStart::NotLaunched) << name;

    session.Write("Plugins/nice", "#!/bin/sh\nnice >~/new\nmv ~/new ~/recorded\n");
    std::filesystem::permissions(session.File("Plugins/nice"), std::filesystem::perms::owner_all);
    RaiseProcessPriority();
    EXPECT_EQ(effects.RunEffect("nice", picture), TEffectStart::Done);
    EXPECT_EQ(session.Recorded(), TWords{"0"}) << "the program's own priority is its own";
    setpriority(PRIO_PROCESS, 0, 0);
}

TEST(Launcher, DefaultOpensAndAPaintingProgramEdits)
{
    TTestSession session;
    session.SetVariable("XDG_DATA_DIRS", session.File("system") + ":/usr/share");
    if (session.File(".local/share") != g_get_user_data_dir())
        GTEST_SKIP() << "GLib has remembered the folders of an earlier test in this process";
    std::filesystem::create_directories(session.File("system/applications"));
    for (const std::string name : {"viewer", "gimp"}) {
        session.AddRecorder(name);
        session.Write("system/applications/" + name + ".desktop",
                      "[Desktop Entry]\nType=Application\nName=x\nExec=" + name + " %f\n");
    }
    session.Write("system/applications/mimeinfo.cache",
                  "[MIME Cache]\nimage/bmp=viewer.desktop;gimp.desktop;\n"
                  "inode/directory=viewer.desktop;\n");
    const std::string picture = session.SavePicture();
    const auto launcher = NewLauncher();
    EXPECT_GE(ShellEdit(*launcher, picture), FirstShellSuccess);
    EXPECT_EQ(session.Recorded(), (TWords{"gimp", picture}));
    EXPECT_GE(ShellExplore(*launcher, session.File("bin")), FirstShellSuccess);
    EXPECT_EQ(session.Recorded(), (TWords{"viewer", session.File("bin")}));
    EXPECT_LT(ShellOpen(*launcher, session.File("missing.bmp")), FirstShellSuccess);

    const auto programs = [] {
        GList* list = g_app_info_get_all_for_type("image/bmp");
        const auto count = g_list_length(list);
        g_list_free_full(list, g_object_unref);
        return count;
    };
    const auto before = programs();
    session.AddRecorder("murala");
    NewFileMenu()->AddShellCommand({"Add", {".bmp"}, session.File("bin/murala")});
    EXPECT_EQ(programs(), before);
    EXPECT_GE(ShellOpen(*launcher, picture), FirstShellSuccess);
    EXPECT_EQ(session.Recorded(), (TWords{"viewer", picture})) << "and not added to Murala";

    session.SetVariable("XDG_CURRENT_DESKTOP", "sway");
    EXPECT_FALSE(launcher->HasDisplayProperties());
    session.SetVariable("XDG_CURRENT_DESKTOP", "XFCE");
    session.AddRecorder("xfdesktop-settings");
    EXPECT_TRUE(launcher->HasDisplayProperties());
    launcher->OpenDisplayProperties();
    EXPECT_EQ(session.Recorded(), (TWords{"xfdesktop-settings"}));
}

TEST(ScreenSaver, ServersAndSessionsSaversCount)
{
    TTestSession session;
    EXPECT_FALSE(NewScreenSaver()->IsRunning()) << "nobody to ask";
    {
        const TTestScreen screen(session, "64x48x24");
        const auto saver = NewScreenSaver();
        for (const int mode : {ScreenSaverReset, ScreenSaverActive, ScreenSaverReset}) {
            XForceScreenSaver(screen.Get(), mode);
            XSync(screen.Get(), False);
            EXPECT_EQ(saver->IsRunning(), mode == ScreenSaverActive);
        }
        for (const unsigned long state : {1UL, 0UL}) { // as xscreensaver does
            screen.SetProperty("_SCREENSAVER_STATUS", XA_INTEGER, {state, 1700000000, 0});
            EXPECT_EQ(saver->IsRunning(), state != 0);
        }
    }
    session.SetVariable("DISPLAY", std::nullopt);
    const TTestBus bus(session);
    const auto saver = NewScreenSaver();
    bool active = true;
    const auto service = NewService("org.gnome.ScreenSaver",
                                    "/org/gnome/ScreenSaver org.gnome.ScreenSaver.GetActive",
                                    [&](GVariant*) { return g_variant_new("(b)", active); });
    EXPECT_TRUE(Eventually([&] { return saver->IsRunning(); })) << "it was there already";
    for (const bool now : {false, true}) {
        active = now;
        g_dbus_connection_emit_signal(service.get(), nullptr, "/org/gnome/ScreenSaver",
                                      "org.gnome.ScreenSaver", "ActiveChanged",
                                      g_variant_new("(b)", active), nullptr);
        EXPECT_TRUE(Eventually([&] { return saver->IsRunning() == active; })) << active;
    }
    g_dbus_connection_close_sync(service.get(), nullptr, nullptr);
    EXPECT_TRUE(Eventually([&] { return !saver->IsRunning(); })) << "it is gone";
}

TEST(ScreenSaver, LockedSessionCountsAndAHangingServiceCostsNothing)
{
    TTestSession session;
    const TTestBus bus(session);
    session.SetVariable("DBUS_SYSTEM_BUS_ADDRESS", std::getenv("DBUS_SESSION_BUS_ADDRESS"));
    bool locked = true;
    const auto login = NewService(
        "org.freedesktop.login1",
        "/org/freedesktop/login1/session/auto org.freedesktop.DBus.Properties.Get",
        [&](GVariant* question) {
            EXPECT_TRUE(g_variant_equal(
                question, TVariant(g_variant_ref_sink(g_variant_new(
                                       "(ss)", "org.freedesktop.login1.Session", "LockedHint")))
                              .get()));
            return g_variant_new("(v)", g_variant_new_boolean(locked));
        });
    const auto hanging =
        NewService("org.mate.ScreenSaver", "/org/mate/ScreenSaver org.mate.ScreenSaver.GetActive",
                   [](GVariant*) { return nullptr; });
    const auto saver = NewScreenSaver();
    EXPECT_TRUE(Eventually([&] { return saver->IsRunning(); }));
    locked = false;
    g_dbus_connection_emit_signal(
        login.get(), nullptr, "/org/freedesktop/login1/session/_32",
        "org.freedesktop.DBus.Properties", "PropertiesChanged",
        g_variant_new("(sa{sv}as)", "org.freedesktop.login1.Session", nullptr, nullptr), nullptr);
    EXPECT_TRUE(Eventually([&] { return !saver->IsRunning(); }));
    const auto start = g_get_monotonic_time();
    for (int i = 0; i < 1000; i++)
        saver->IsRunning();
    EXPECT_LT(g_get_monotonic_time() - start, 100000);
}

TEST(LinuxProcessMemory, ThreadsHaveNoHeapsOfTheirOwn)
{
    const auto hasSecondHeap = [] {
        char* text = nullptr;
        std::size_t size = 0;
        std::FILE* file = open_memstream(&text, &size);
        malloc_info(0, file);
        std::fclose(file);
        const std::string said = TGText(text).get();
        return said.find("<heap nr=\"1\"") != std::string::npos;
    };
    ShareMemoryOfThreads();
    const bool before = hasSecondHeap();
    std::thread([] { std::vector<char>(1000)[0] = 1; }).join();
    EXPECT_EQ(hasSecondHeap(), before);
}

TEST(LinuxLocale, UpperCaseKeepsWhatIsNoText)
{
    EXPECT_EQ(NewLocale()->UpperCase("größe é\xFFz\xC3"), "GRÖßE É\xFFZ\xC3");
}

TEST(LinuxLocale, OrdersAsTheUserDoes)
{
    const auto locale = NewLocale();
    const std::unique_ptr<std::remove_pointer_t<locale_t>, void (*)(locale_t)> users(
        newlocale(LC_ALL_MASK, "", nullptr), freelocale);
    ExpectSameOrder(*locale, [&](const std::string& a, const std::string& b) {
        return users ? strcoll_l(a.c_str(), b.c_str(), users.get()) : a.compare(b);
    });
}

TEST(FileSearch, BracketsAndStarsInNamesAreNames)
{
    const TTempFolder folder;
    for (const char* name : {"[1]*.jpg", "[1]b.jpg", "1c.jpg", ".d.bmp"})
        folder.Write(name, "");
    const std::pair<const char*, const char*> cases[] = {{"[1]*.jpg", "[1]*.jpg"},
                                                         {"[1]?.jpg", "[1]*.jpg"},
                                                         {"*c*", "1c.jpg"},
                                                         {"*.bmp", ".d.bmp"},
                                                         {"[1]", ""},
                                                         {"none*", ""},
                                                         {"", ""}};
    for (const auto& [pattern, expected] : cases)
        EXPECT_EQ(FindFirstName(folder.Path() + '/' + pattern).value_or(""), expected) << pattern;
}

} // namespace
