#include "uAutostart.h"
#include "uDesktop.h"
#include "uEffects.h"
#include "uFileSearch.h"
#include "uIconView.h"
#include "uInstanceLink.h"
#include "uLocaleTexts.h"
#include "uProgramFolder.h"
#include "uRegistry.h"
#include "uScreenSaver.h"
#include "uSessionEnd.h"
#include "uShellIntegration.h"
#include "uTaskBar.h"
#include "uTempFolder.h"
#include "uWindowsHandles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <thread>

using namespace murala;

namespace
{

using TLog = std::vector<std::string>;

// Polls for ten seconds at the most. The last answer.
bool Eventually(const std::function<bool()>& condition)
{
    for (int i = 0; i < 500 && !condition(); i++)
        Sleep(20);
    return condition();
}

// Fakes.exe, which lies beside the test program; it runs until the end of the test.
class TFakeProgram
{
public:
    static std::string File() { return ProgramFolder() + "Fakes.exe"; }

    explicit TFakeProgram(const std::string& mode)
    {
        std::string command = '"' + File() + "\" " + mode + " \"" + m_folder.File("log") + '"';
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION started{};
        EXPECT_TRUE(CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                                   nullptr, &startup, &started));
        m_thread.reset(started.hThread);
        m_process.reset(started.hProcess);
    }
    TFakeProgram(const TFakeProgram&) = delete;
    TFakeProgram& operator=(const TFakeProgram&) = delete;
    ~TFakeProgram() { Kill(); }

    void Kill()
    {
        TerminateProcess(m_process.get(), 0);
        WaitForSingleObject(m_process.get(), INFINITE);
    }
    // It hangs from now on.
    void Suspend() { SuspendThread(m_thread.get()); }
    // What it was sent.
    TLog Log() const
    {
        TLog lines;
        std::ifstream file(m_folder.File("log"));
        for (std::string line; std::getline(file, line);)
            lines.push_back(line);
        return lines;
    }

private:
    TTempFolder m_folder;
    THandle m_process, m_thread;
};

TEST(Screens, AMessageWithoutAnotherLayoutIsNotPassedOn)
{
    const auto desktop = NewDesktop("");
    int told = 0;
    desktop->ListenToScreens([&] { told++; });
    const HWND window = FindWindowA("TMuScreens", nullptr);
    ASSERT_NE(window, nullptr);
    PostMessageA(window, WM_DISPLAYCHANGE, 32, MAKELPARAM(640, 480));
    for (const DWORD end = GetTickCount() + 1500; GetTickCount() < end; Sleep(10))
        for (MSG message; PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != FALSE;)
            DispatchMessageA(&message);
    EXPECT_EQ(told, 0);
}

TEST(WindowsDesktop, TileFlagAndColourAreStoredWhereWindowsKeepsThem)
{
    const auto desktop = NewDesktop("");
    for (const auto& [mode, flag] :
         {std::pair(0, "1"), std::pair(2, "1"), std::pair(1, "0"), std::pair(-1, "0")}) {
        desktop->WriteTileWallpaper(mode);
        EXPECT_EQ(
            NewRegistry()->ReadText(TRoot::CurrentUser, "Control Panel\\desktop", "TileWallpaper"),
            flag);
    }
    const TColor before = desktop->DesktopColor();
    const auto expectColor = [&](TColor color, const char* expected) {
        EXPECT_EQ(desktop->DesktopColor(), color);
        char text[32] = {};
        GetPrivateProfileStringA("colors", "Background", "", text, sizeof text, "win.ini");
        EXPECT_STREQ(text, expected);
    };
    desktop->ApplyDesktopColor(0x0A0B0C);
    expectColor(0x0A0B0C, "12 11 10");
    int answers = 0;
    TScreenPictures pictures(1);
    pictures[0].Path = "C:\\missing.bmp";
    desktop->Install(pictures, 0x010203, [&](const TInstalled&) { answers++; });
    EXPECT_EQ(answers, 1);
    expectColor(0x010203, "3 2 1");
    desktop->ApplyDesktopColor(before);
}

TEST(IconViewOfAShell, LabelsAreSetOnceAndPaintedAgain)
{
    const auto icons = NewIconView();
    const auto desktop = NewDesktop("");
    EXPECT_FALSE(icons->CanBeAsked());
    EXPECT_FALSE(icons->GetIconRegion().IsKnown());
    for (const std::string top : {"Progman", "WorkerW"}) { // the second has no icons
        const TFakeProgram shell(top);
        ASSERT_TRUE(Eventually([&] { return icons->GetIconTextBackColor() == 0x112233; })) << top;
        const auto asked = static_cast<std::ptrdiff_t>(shell.Log().size());
        for (int i = 0; i < 2; i++)
            SetIconsTransparent(*icons);
        for (int i = 0; i < 2; i++)
            SetIconsOpaque(*icons, *desktop);
        const TLog log = shell.Log();
        const std::string paint = top == "Progman" ? "21 0 1" : "21 0 -1";
        const std::string opaque = "38 0 " + std::to_string(desktop->DesktopColor());
        EXPECT_EQ(TLog(log.begin() + asked, log.end()),
                  (TLog{"37 0 0", "38 0 -1", "4 0 0", paint, "37 0 0", "37 0 0", opaque, "4 0 0",
                        paint, "37 0 0"}));
        const TRect bar = NewTaskBar()->GetTaskBarRect();
        EXPECT_TRUE(bar.Left == 10 && bar.Top == 450 && bar.Right == 630 && bar.Bottom == 470);
        const auto sent = static_cast<std::ptrdiff_t>(shell.Log().size());
        const TIconRegion region = icons->GetIconRegion();
        EXPECT_TRUE(region.IsKnown());
        EXPECT_EQ(region.Rects,
                  (std::vector<TRect>{{20, 30, 68, 78}, {10, 78, 78, 98}, {300, 130, 348, 178}}));
        const TLog told = shell.Log();
        EXPECT_EQ(TLog(told.begin() + sent, told.end()), (TLog{"55 0 0", "54 512 -1", "54 512 32"}))
            << "the style is taken back";
    }
}

// As the shell of today, whose list knows no regional style.
TEST(IconViewOfAShell, RectanglesAreAskedForWhereTheListHasNoRegion)
{
    const auto icons = NewIconView();
    TFakeProgram shell("Modern");
    ASSERT_TRUE(Eventually([&] { return icons->GetIconTextBackColor() == 0x112233; }));
    const TIconRegion region = icons->GetIconRegion();
    EXPECT_EQ(region.Problem, "");
    EXPECT_EQ(region.Rects,
              (std::vector<TRect>{{20, 30, 68, 78}, {10, 78, 78, 98}, {300, 130, 348, 178}, {}}));
    shell.Suspend();
    const auto start = GetTickCount64();
    EXPECT_EQ(icons->GetIconRegion().Problem, "The desktop does not answer.");
    EXPECT_LT(GetTickCount64() - start, 2500U);
}

HWND MakeMainWindow()
{
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = DefWindowProcA;
    windowClass.lpszClassName = MainWindowClass;
    RegisterClassA(&windowClass);
    return CreateWindowExA(0, MainWindowClass, MainWindowCaption, WS_POPUP, 0, 0, 1, 1, nullptr,
                           nullptr, nullptr, nullptr);
}

TEST(InstanceLink, RunningCopyIsFoundByItsWindowAndWoken)
{
    for (const bool hasMainWindow : {false, true}) {
        const HWND mainWindow = hasMainWindow ? MakeMainWindow() : nullptr;
        const auto first = NewInstanceLink();
        const auto second = NewInstanceLink();
        EXPECT_EQ(second->PostWake(), hasMainWindow);
        NewMessageLoop()->HandlePendingMessages();
        int wakes = 0;
        first->Listen(mainWindow, [&] { wakes++; });
        EXPECT_TRUE(second->PostWake());
        EXPECT_TRUE(second->PostWake());
        EXPECT_EQ(wakes, 0) << "out of the message loop only";
        NewMessageLoop()->HandlePendingMessages();
        EXPECT_EQ(wakes, 2);
        // A setup program or the Task Manager asks all windows; the link's own is not the one to
        // go.
        SendMessageA(FindWindowA(MainWindowClass, MainWindowCaption), WM_CLOSE, 0, 0);
        EXPECT_EQ(second->IsRunning(), !hasMainWindow);
    }
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
        EXPECT_TRUE(waited >= 500 && waited < 5000) << holder << ' ' << waited;
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
    const TFakeProgram veyra(VeyraWindowClass);
    ASSERT_TRUE(Eventually([] { return FindWindowA(VeyraWindowClass, nullptr) != nullptr; }));
    EXPECT_EQ(siblings->GetVeyraDesktop(), 0) << "no main window to answer to";
    const auto link = NewInstanceLink();
    link->Listen(nullptr, [] {});
    EXPECT_EQ(siblings->GetVeyraDesktop(), 3);
    siblings->NotifyVeyraWallpaperChange();
    EXPECT_EQ(veyra.Log(), (TLog{GetDesktopMessage, WallpaperChangeMessage}));
}

TEST(Siblings, RovaneIsClosedByItsMessage)
{
    const auto siblings = NewSiblings();
    const auto loop = NewMessageLoop();
    EXPECT_EQ(siblings->FindRovane(), 0U);
    const TFakeProgram rovane(RovaneWindowClass);
    ASSERT_TRUE(Eventually([&] { return siblings->FindRovane() != 0; }));
    EXPECT_TRUE(CloseWindowAndWait(*siblings, *loop, siblings->FindRovane()));
    EXPECT_EQ(siblings->FindRovane(), 0U);
}

TEST(WindowsEffects, ProgramsAreListedAndStartedOnThePicture)
{
    const TTempFolder folder;
    std::filesystem::create_directories(NativePath(folder.File("Plugins")));
    std::filesystem::copy_file(NativePath(TFakeProgram::File()),
                               NativePath(folder.File("Plugins\\Snow fall.exe")));
    for (const char* name : {"Plugins\\Rovane.EXE", "Plugins\\ReadMe.txt"})
        folder.Write(name, "x");
    const auto launcher = NewLauncher();
    const auto siblings = NewSiblings();
    const auto loop = NewMessageLoop();
    TEffects effects(folder.Path() + "\\", *launcher, *siblings, *loop);
    auto names = effects.ListEffects();
    std::ranges::sort(names);
    EXPECT_EQ(names, (TLog{"Rovane", "Snow fall"}));
    EXPECT_EQ(effects.RunEffectSettings("Snow fall", "C:\\a b\\c.jpg"), TEffectStart::Done);
    const std::string log = ReadWholeFile(folder.File("Plugins\\Snow fall.exe.log"));
    EXPECT_NE(log.find("\"C:\\a b\\c.jpg\" /settings\r\n"), std::string::npos) << log;
    EXPECT_EQ(effects.RunEffect("Rain", "C:\\c.jpg"), TEffectStart::NotLaunched);
}

TEST(ScreenSaver, IsToldByItsWindow)
{
    const auto saver = NewScreenSaver();
    for (const char* name : {"WindowsScreenSaverClass", "Drempels"}) {
        EXPECT_FALSE(saver->IsRunning());
        const TFakeProgram program(name);
        EXPECT_TRUE(Eventually([&] { return saver->IsRunning(); })) << name;
    }
}

TEST(WindowsFileQueue, TenThousandNamesGoInAndOutInTime)
{
    const auto queue = NewFileQueue();
    queue->TakeQueuedFiles();
    TLog names;
    for (int i = 0; i < 10000; i++)
        names.push_back("C:\\ä=b [" + std::to_string(i) + "].jpg");
    const auto start = GetTickCount64();
    EXPECT_TRUE(queue->QueueFiles(names));
    EXPECT_TRUE(queue->QueueFiles({names[0]}));
    TLog taken = queue->TakeQueuedFiles();
    EXPECT_LT(GetTickCount64() - start, 10000U); // a quiet machine is below 3000
    std::ranges::sort(taken);
    std::ranges::sort(names);
    EXPECT_EQ(taken, names);
    EXPECT_TRUE(queue->TakeQueuedFiles().empty());
}

TEST(WindowsRegistry, VerbAndStartEntryGoInAndOut)
{
    const auto menu = NewFileMenu();
    const auto autostart = NewAutostart();
    for (const bool in : {true, false}) {
        SetShellIntegration(*menu, in);
        EXPECT_EQ(IsShellIntegrated(*menu), in);
        if (in)
            autostart->SetRunValue("Murala test", "C:\\x.exe /apply");
        else
            autostart->DeleteRunValue("Murala test");
        EXPECT_EQ(autostart->RunValueExists("Murala test"), in);
    }
}

// As the toolkit, which closes the window when it is asked, and deletes all windows at the end.
LRESULT CALLBACK ToolkitProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    EXPECT_TRUE(message != WM_QUERYENDSESSION && message != WM_ENDSESSION);
    return DefWindowProcA(window, message, wParam, lParam);
}

TEST(SessionEnd, IsAnsweredAtOnceAndComesOnceAndOnlyWhenItIsReal)
{
    const HWND window = MakeMainWindow();
    SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(ToolkitProcedure));
    const auto sessionEnd = NewSessionEnd();
    int questions = 0, ends = 0;
    sessionEnd->ListenToQuestion([&] {
        questions++;
        throw std::runtime_error("the disk is full");
    });
    sessionEnd->Listen(window, [&] { ends++; });
    for (const auto& [reallyEnds, expected] :
         {std::pair(FALSE, 0), std::pair(TRUE, 1), std::pair(TRUE, 1)}) {
        EXPECT_EQ(SendMessageA(window, WM_QUERYENDSESSION, 0, 0), 1);
        SendMessageA(window, WM_ENDSESSION, static_cast<WPARAM>(reallyEnds), 0);
        EXPECT_EQ(ends, expected);
    }
    EXPECT_EQ(questions, 3);
    DestroyWindow(window);
}

TEST(FileSearch, StoredSpellingIsFound)
{
    const TTempFolder folder;
    folder.Write("MiXed ü.JPG", "x");
    EXPECT_EQ(FindFirstName(folder.File("mixed Ü.jpg")), "MiXed ü.JPG");
    EXPECT_EQ(FindFirstName(folder.File("m*.j?g")), "MiXed ü.JPG");
    EXPECT_EQ(FindFirstName(folder.File("none*")), std::nullopt);
}

TEST(WindowsLocale, OrdersAndSpellsAsTheUserDoes)
{
    const auto locale = NewLocale();
    EXPECT_LT(locale->SortKey("a"), locale->SortKey("A"));
    EXPECT_LT(locale->SortKey("A"), locale->SortKey("b"));
    ExpectSameOrder(*locale, [](const std::string& a, const std::string& b) {
        return CompareStringA(LOCALE_USER_DEFAULT, LOCALE_USE_CP_ACP, a.data(),
                              static_cast<int>(a.size()), b.data(), static_cast<int>(b.size())) -
               CSTR_EQUAL;
    });
    EXPECT_EQ(locale->UpperCase("größe é-1"), "GRÖßE É-1");
    // These two have an upper-case letter of more bytes.
    EXPECT_EQ(locale->UpperCase("C:\\ɐɫ\\"), "C:\\ⱯⱢ\\");
}

} // namespace
