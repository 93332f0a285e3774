// Programs that Murala meets, in the places of the real ones: Fakes.exe MODE LOG. They write what
// they are sent into the log, one line a message, and end when their first window is closed.
// Without a mode it is an effect program, which writes its command line into a log beside itself.
#include "uDesktop.h"
#include "uInstanceLink.h"
#include "uSiblings.h"

#include <windows.h>

#include <commctrl.h>

#include <fstream>
#include <string>
#include <vector>

namespace
{

std::string logFile;

void Log(const std::string& line)
{
    std::ofstream(logFile, std::ios::app) << line << '\n';
}

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == RegisterWindowMessageA(murala::GetDesktopMessage)) {
        Log(murala::GetDesktopMessage);
        SendMessageA(reinterpret_cast<HWND>(lParam),
                     RegisterWindowMessageA(murala::TellDesktopMessage), 0, 3);
    }
    if (message == RegisterWindowMessageA(murala::WallpaperChangeMessage))
        Log(murala::WallpaperChangeMessage);
    if (message == WM_DESTROY)
        PostQuitMessage(0);
    return DefWindowProcA(window, message, wParam, lParam);
}

HWND MakeWindow(const char* name, HWND parent, const RECT& place)
{
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = OnMessage;
    windowClass.lpszClassName = name;
    RegisterClassA(&windowClass);
    const bool isChild = parent != nullptr;
    return CreateWindowExA(isChild ? 0 : WS_EX_TOPMOST, name, "",
                           (isChild ? WS_CHILD : WS_POPUP) | WS_VISIBLE, place.left, place.top,
                           place.right - place.left, place.bottom - place.top, parent, nullptr,
                           nullptr, nullptr);
}

void HandleMessages()
{
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0)
        DispatchMessageA(&message);
}

// The list's icons, with their labels: the regional style is made of them, and messages ask for
// them one by one. The last label is empty.
constexpr struct {
    RECT Icon, Label;
} IconPlaces[] = {{{20, 30, 68, 78}, {10, 78, 78, 98}}, {{300, 130, 348, 178}, {}}};

// Lists of newer shells know nothing of the regional style. This one begins on a monitor to the
// left of the first.
bool isModern = false;
constexpr int ModernLeft = -100;

// As the system's list does. It owns its region.
void ShowRegion(HWND list, bool isRegional)
{
    HRGN region = isRegional ? CreateRectRgn(0, 0, 0, 0) : nullptr;
    for (const auto& [icon, label] : IconPlaces)
        for (const RECT& rect : {icon, label}) {
            if (!isRegional)
                break;
            HRGN place = CreateRectRgnIndirect(&rect);
            CombineRgn(region, region, place, RGN_OR);
            DeleteObject(place);
        }
    SetWindowRgn(list, region, TRUE);
}

// `rect` must be this program's memory: an address of another one's ends this program, as it would
// end the shell.
BOOL GetIconRect(std::size_t item, RECT& rect)
{
    if (item >= std::size(IconPlaces) || (rect.left != LVIR_ICON && rect.left != LVIR_LABEL))
        return FALSE;
    rect = rect.left == LVIR_ICON ? IconPlaces[item].Icon : IconPlaces[item].Label;
    OffsetRect(&rect, -ModernLeft, 0);
    return TRUE;
}

LRESULT CALLBACK LogListMessages(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                 UINT_PTR /*id*/, DWORD_PTR /*data*/)
{
    // Only what other programs send; the list talks to itself, too.
    if (InSendMessage() && message >= LVM_FIRST && message < LVM_FIRST + 0x100)
        Log(std::to_string(message - LVM_FIRST) + ' ' + std::to_string(wParam) + ' ' +
            std::to_string(static_cast<int>(lParam)));
    constexpr LPARAM Regional = 0x200;
    if (message == LVM_SETEXTENDEDLISTVIEWSTYLE && (wParam & Regional) != 0 && !isModern)
        ShowRegion(window, (lParam & Regional) != 0);
    if (message == LVM_GETITEMRECT && InSendMessage())
        return GetIconRect(wParam, *reinterpret_cast<RECT*>(lParam));
    return DefSubclassProc(window, message, wParam, lParam);
}

// The desktop's icons, below a window of the given class, and a task bar.
void RunShell(const char* top, int icons)
{
    InitCommonControls();
    MakeWindow("Shell_TrayWnd", nullptr, {10, 450, 630, 470});
    const RECT screen{0, 0, 640, 480};
    const HWND view = MakeWindow("SHELLDLL_DefView", MakeWindow(top, nullptr, screen), screen);
    const HWND list =
        CreateWindowExA(0, WC_LISTVIEWA, "", WS_CHILD | WS_VISIBLE | LVS_ICON,
                        isModern ? ModernLeft : 0, 0, 740, 480, view, nullptr, nullptr, nullptr);
    for (int i = 0; i < icons; i++) {
        LVITEMA item{};
        SendMessageA(list, LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
    }
    SendMessageA(list, LVM_SETTEXTBKCOLOR, 0, 0x112233);
    ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT);
    SetWindowSubclass(list, LogListMessages, 1, 0);
    HandleMessages();
}

// As Murala does, or as a program that knows nothing but the semaphore.
[[noreturn]] void HoldStartLock(bool asMurala)
{
    const auto link = murala::NewInstanceLink();
    if (asMurala)
        link->Lock();
    else
        WaitForSingleObject(CreateSemaphoreA(nullptr, 1, 1, murala::StartLockName), INFINITE);
    Log("locked");
    Sleep(INFINITE);
    std::exit(0);
}

// The system, which asks every window of Murala whether the session may end, waits five seconds for
// each answer, and then tells all of them whether it does.
void EndSession(bool reallyEnds)
{
    static std::vector<HWND> windows;
    EnumWindows(
        [](HWND window, LPARAM murala) {
            DWORD process = 0;
            GetWindowThreadProcessId(window, &process);
            if (process == static_cast<DWORD>(murala))
                windows.push_back(window);
            return TRUE;
        },
        [] {
            DWORD process = 0;
            GetWindowThreadProcessId(FindWindowA(murala::MainWindowClass, nullptr), &process);
            return static_cast<LPARAM>(process);
        }());
    const auto send = [](HWND window, UINT message, WPARAM wParam) {
        DWORD_PTR answer = 2;
        SendMessageTimeoutA(window, message, wParam, 0, SMTO_ABORTIFHUNG, 5000, &answer);
        return std::to_string(answer);
    };
    for (const HWND window : windows) {
        char title[80] = {};
        GetWindowTextA(window, title, sizeof title);
        Log("asked \"" + std::string(title) + "\": " + send(window, WM_QUERYENDSESSION, 0));
    }
    for (const HWND window : windows)
        send(window, WM_ENDSESSION, reallyEnds ? TRUE : FALSE);
    Log("told");
}

// Installs the pictures one after the other, each for as long as the log is there.
void SetWallpapers(int count, char** pictures)
{
    const auto desktop = murala::NewDesktop("");
    murala::TScreenPictures all(1);
    for (int i = 0; i < count; i++) {
        all[0].Path = pictures[i];
        desktop->Install(all, 0, [](const murala::TInstalled& installed) {
            Log(installed.Took ? "set" : "failed");
        });
        while (GetFileAttributesA(logFile.c_str()) != INVALID_FILE_ATTRIBUTES)
            Sleep(50);
    }
}

} // namespace

int main(int count, char** arguments)
{
    const bool isEffect = count < 3 || std::string(arguments[2]) == "/settings";
    const std::string mode = isEffect ? "" : arguments[1];
    logFile = isEffect ? std::string(arguments[0]) + ".log" : arguments[2];
    if (isEffect)
        Log(GetCommandLineA());
    else if (mode == "Progman" || mode == "WorkerW" || mode == "Modern") {
        isModern = mode == "Modern";
        RunShell(isModern ? "Progman" : mode.c_str(), mode == "WorkerW" ? 0 : 2);
    } else if (mode == "lock" || mode == "semaphore")
        HoldStartLock(mode == "lock");
    else if (mode == "session-goes-on" || mode == "session-ends")
        EndSession(mode == "session-ends");
    else if (mode == "wallpapers")
        SetWallpapers(count - 3, arguments + 3);
    else if (MakeWindow(mode.c_str(), nullptr, {0, 0, 10, 10}) != nullptr)
        HandleMessages();
    return 0;
}
