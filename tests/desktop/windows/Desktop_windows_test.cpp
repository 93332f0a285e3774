#include "uDesktop.h"
#include "uEffects.h"
#include "uFakeProgram.h"
#include "uFileSearch.h"
#include "uIconView.h"
#include "uInstanceLink.h"
#include "uLocale.h"
#include "uPath.h"
#include "uProcessPriority.h"
#include "uScreenSaver.h"
#include "uShellIntegration.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <thread>

using namespace murala;

namespace
{

TEST(WindowsDesktop, TileFlagAndColourAreStoredWhereWindowsKeepsThem)
{
    const auto registry = NewRegistry("");
    const auto desktop = NewDesktop("");
    constexpr const char* key = "Control Panel\\desktop";
    for (const char* flag : {"1", "0"}) {
        desktop->StoreTileFlag(flag);
        EXPECT_EQ(registry->ReadText(TRoot::CurrentUser, key, "TileWallpaper"), flag);
    }
    const TColor before = desktop->DesktopColor();
    desktop->StoreDesktopColorText("12 11 10");
    desktop->SetDesktopColor(0x0A0B0C);
    EXPECT_EQ(desktop->DesktopColor(), 0x0A0B0CU);
    char text[32] = {};
    GetPrivateProfileStringA("colors", "Background", "", text, sizeof text, "win.ini");
    EXPECT_STREQ(text, "12 11 10");
    desktop->SetDesktopColor(before);
}

TEST(IconViewOfAShell, LabelsAreSetOnceAndPaintedAgain)
{
    const TFakeProgram shell("shell");
    const auto windows = NewShellWindows();
    ASSERT_TRUE(Eventually([&] { return FindDesktopListView(*windows) != 0; }));
    ASSERT_TRUE(Eventually([&] { return GetIconTextBackColor(*windows) == 0x112233; }));
    const std::size_t asked = shell.Log().size();
    SetIconsTransparent(*windows);
    SetIconsTransparent(*windows);
    EXPECT_EQ(GetIconTextBackColor(*windows), NoColor);
    auto log = shell.Log();
    log.erase(log.begin(), log.begin() + static_cast<std::ptrdiff_t>(asked));
    EXPECT_EQ(log, (std::vector<std::string>{"37 0 0", "38 0 -1", "4 0 0", "21 0 2", "37 0 0",
                                             "37 0 0"}));
    const auto desktop = NewDesktop("");
    SetIconsOpaque(*windows, *desktop);
    EXPECT_EQ(GetIconTextBackColor(*windows), desktop->DesktopColor());

    const TRect bar = GetTaskBarRect(*windows);
    EXPECT_EQ(bar.Left, -2);
    EXPECT_EQ(bar.Bottom, 482);
    EXPECT_TRUE(GetIconRegion(*windows).has_value());
}

TEST(IconViewOfAShell, EmptyDesktopIsPaintedUpToIconMinusOne)
{
    const TFakeProgram shell("empty-shell");
    const auto windows = NewShellWindows();
    ASSERT_TRUE(Eventually([&] { return GetIconTextBackColor(*windows) == 0x112233; }));
    SetIconTextBackColor(*windows, 0x445566);
    EXPECT_EQ(shell.Log().back(), "21 0 -1");
}

TEST(IconViewOfAShell, IconsInAWorkerWindowAreFound)
{
    const auto windows = NewShellWindows();
    EXPECT_EQ(FindDesktopListView(*windows), 0U);
    const TFakeProgram shell("worker-shell");
    EXPECT_TRUE(Eventually([&] { return GetIconTextBackColor(*windows) == 0x112233; }));
}

TEST(InstanceLink, RunningCopyIsFoundByItsWindowAndWoken)
{
    const auto first = NewInstanceLink();
    const auto second = NewInstanceLink();
    const auto loop = NewMessageLoop();
    EXPECT_FALSE(second->IsRunning());
    EXPECT_FALSE(second->PostWake());
    int wakes = 0;
    first->Listen(nullptr, [&] { wakes++; });
    EXPECT_NE(FindWindowA("TfMain", "Murala"), nullptr);
    EXPECT_TRUE(second->PostWake());
    EXPECT_TRUE(second->PostWake());
    EXPECT_EQ(wakes, 0) << "out of the message loop only";
    loop->HandlePendingMessages();
    EXPECT_EQ(wakes, 2);
}

TEST(InstanceLink, MainWindowOfTheProgramIsListenedTo)
{
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = DefWindowProcA;
    windowClass.lpszClassName = MainWindowClass;
    RegisterClassA(&windowClass);
    const HWND window = CreateWindowExA(0, MainWindowClass, MainWindowCaption, WS_POPUP, 0, 0, 1, 1,
                                        nullptr, nullptr, nullptr, nullptr);
    const auto link = NewInstanceLink();
    int wakes = 0;
    link->Listen(window, [&] { wakes++; });
    EXPECT_TRUE(NewInstanceLink()->PostWake());
    NewMessageLoop()->HandlePendingMessages();
    EXPECT_EQ(wakes, 1);
    DestroyWindow(window);
    EXPECT_FALSE(link->IsRunning());
}

TEST(InstanceLink, LockIsWaitedForAndFreeOnceItsHolderIsKilled)
{
    for (const char* holder : {"lock", "semaphore"}) {
        TFakeProgram other(holder);
        ASSERT_TRUE(Eventually([&] { return other.Log().size() == 1; }));
        std::thread killer([&] {
            Sleep(600);
            other.Kill();
        });
        const auto link = NewInstanceLink();
        const auto start = GetTickCount64();
        link->Lock();
        const auto waited = GetTickCount64() - start;
        EXPECT_GE(waited, 500U) << holder;
        EXPECT_LT(waited, 5000U) << holder;
        killer.join();
        link->Unlock();
        NewInstanceLink()->Lock();
    }
}

TEST(Siblings, VeyraAnswersWhileItIsAsked)
{
    const auto siblings = NewSiblings();
    EXPECT_EQ(siblings->GetVeyraDesktop(), 0);
    siblings->NotifyVeyraWallpaperChange();
    const TFakeProgram veyra("veyra");
    ASSERT_TRUE(Eventually([] { return FindWindowA(VeyraWindowClass, nullptr) != nullptr; }));
    EXPECT_EQ(siblings->GetVeyraDesktop(), 0) << "no main window to answer to";
    const auto link = NewInstanceLink();
    link->Listen(nullptr, [] {});
    EXPECT_EQ(siblings->GetVeyraDesktop(), 3);
    siblings->NotifyVeyraWallpaperChange();
    EXPECT_EQ(veyra.Log(),
              (std::vector<std::string>{"Veyra Get Current Desktop", "Veyra Wallpaper Change"}));
}

TEST(Siblings, RovaneIsClosedByItsMessage)
{
    const auto siblings = NewSiblings();
    const auto loop = NewMessageLoop();
    EXPECT_EQ(siblings->FindRovane(), 0U);
    const TFakeProgram rovane("rovane");
    ASSERT_TRUE(Eventually([&] { return siblings->FindRovane() != 0; }));
    EXPECT_TRUE(CloseWindowAndWait(*siblings, *loop, siblings->FindRovane()));
    EXPECT_EQ(siblings->FindRovane(), 0U);
}

TEST(WindowsEffects, ProgramsAreListedAndStartedOnThePicture)
{
    const TTempFolder folder;
    std::filesystem::create_directories(NativePath(folder.File("Plugins")));
    std::filesystem::copy_file(NativePath(FakeProgramFile()),
                               NativePath(folder.File("Plugins\\Snow fall.exe")));
    std::ofstream(folder.File("Plugins\\Rovane.EXE")) << "x";
    std::ofstream(folder.File("Plugins\\ReadMe.txt")) << "x";
    const auto launcher = NewLauncher();
    const auto siblings = NewSiblings();
    const auto loop = NewMessageLoop();
    TEffects effects(folder.Path() + "\\", *launcher, *siblings, *loop);
    auto names = effects.ListEffects();
    std::ranges::sort(names);
    EXPECT_EQ(names, (std::vector<std::string>{"Rovane", "Snow fall"}));
    EXPECT_EQ(effects.RunEffectSettings("Snow fall", "C:\\a b\\c.jpg"), TEffectStart::Done);
    std::string line;
    std::ifstream log(folder.File("Plugins\\Snow fall.exe.log"));
    std::getline(log, line);
    EXPECT_TRUE(line.ends_with("\"C:\\a b\\c.jpg\" /settings")) << line;
    EXPECT_EQ(effects.RunEffect("Rain", "C:\\c.jpg"), TEffectStart::NotLaunched);
}

TEST(ScreenSaver, IsToldByItsWindow)
{
    const auto saver = NewScreenSaver();
    EXPECT_FALSE(saver->IsRunning());
    const TFakeProgram program("saver");
    EXPECT_TRUE(Eventually([&] { return saver->IsRunning(); }));
}

TEST(ProcessPriority, IsHigh)
{
    RaiseProcessPriority();
    EXPECT_EQ(GetPriorityClass(GetCurrentProcess()), static_cast<DWORD>(HIGH_PRIORITY_CLASS));
    SetPriorityClass(GetCurrentProcess(), NORMAL_PRIORITY_CLASS);
}

TEST(WindowsRegistry, ValuesAreWrittenListedAndDeleted)
{
    const auto registry = NewRegistry("");
    const std::string key = "Software\\MuralaTest\\Queue";
    EXPECT_FALSE(registry->KeyExists(TRoot::CurrentUser, key));
    EXPECT_TRUE(registry->WriteText(TRoot::CurrentUser, key, "C:\\a=b [1].jpg", ""));
    EXPECT_TRUE(registry->WriteText(TRoot::CurrentUser, key, "", "default"));
    EXPECT_EQ(registry->ReadText(TRoot::CurrentUser, key, ""), "default");
    EXPECT_EQ(registry->ReadText(TRoot::CurrentUser, key, "none"), std::nullopt);
    auto names = registry->ValueNames(TRoot::CurrentUser, key);
    std::ranges::sort(names);
    EXPECT_EQ(names, (std::vector<std::string>{"", "C:\\a=b [1].jpg"}));
    for (const std::string& name : names)
        registry->DeleteValue(TRoot::CurrentUser, key, name);
    EXPECT_TRUE(registry->ValueNames(TRoot::CurrentUser, key).empty());
    registry->DeleteKey(TRoot::CurrentUser, key);
    registry->DeleteKey(TRoot::CurrentUser, "Software\\MuralaTest");
    EXPECT_FALSE(registry->KeyExists(TRoot::CurrentUser, "Software\\MuralaTest"));
}

TEST(WindowsRegistry, VerbAndStartEntryGoInAndOut)
{
    const auto registry = NewRegistry("");
    SetShellIntegration(*registry, true);
    EXPECT_TRUE(IsShellIntegrated(*registry));
    SetShellIntegration(*registry, false);
    EXPECT_FALSE(IsShellIntegrated(*registry));
    SetRunValue(*registry, "Murala test", "C:\\x.exe /apply");
    EXPECT_TRUE(RunValueExists(*registry, "Murala test"));
    DeleteRunValue(*registry, "Murala test");
    EXPECT_FALSE(RunValueExists(*registry, "Murala test"));
}

TEST(FileSearch, StoredSpellingIsFound)
{
    const TTempFolder folder;
    std::ofstream(folder.File("MiXed ü.JPG")) << "x";
    EXPECT_EQ(FindFirstName(folder.File("mixed Ü.jpg")), "MiXed ü.JPG");
    EXPECT_EQ(FindFirstName(folder.File("m*.j?g")), "MiXed ü.JPG");
    EXPECT_EQ(FindFirstName(folder.File("none*")), std::nullopt);
}

TEST(WindowsLocale, OrdersAndSpellsAsTheUserDoes)
{
    const auto locale = NewLocale();
    EXPECT_LT(locale->Compare("a", "B"), 0);
    EXPECT_LT(locale->Compare("a", "A"), 0);
    EXPECT_EQ(locale->Compare("a b", "a b"), 0);
    EXPECT_GT(locale->Compare("b", "A"), 0);
    EXPECT_EQ(locale->UpperCase("a-z 1"), "A-Z 1");
    EXPECT_EQ(locale->UpperCase("größe é"), "GRÖßE É");
    EXPECT_LT(locale->Compare("é", "f"), 0);
}

} // namespace
