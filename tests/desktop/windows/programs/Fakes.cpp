// Programs that Murala meets, in the places of the real ones: Fakes.exe MODE LOG. They write what
// they are sent into the log, one line a message, and end when their first window is closed.
// Without a mode it is an effect program, which writes its command line into a log beside itself.
#include "uDesktop.h"
#include "uInstanceLink.h"
#include "uSiblings.h"

#include <windows.h>

#include <commctrl.h>

#include <cstdio>
#include <fstream>
#include <string>

namespace
{

std::string logFile;

void Log(const std::string& line)
{
    std::ofstream(logFile, std::ios::app) << line << '\n';
}

LRESULT CALLBACK EndOnDestroy(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_DESTROY)
        PostQuitMessage(0);
    return DefWindowProcA(window, message, wParam, lParam);
}

HWND MakeWindow(const char* name, HWND parent, WNDPROC procedure, const RECT& place,
                DWORD exStyle = 0)
{
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = name;
    RegisterClassA(&windowClass);
    const DWORD style = parent != nullptr ? WS_CHILD : WS_POPUP;
    const HWND window =
        CreateWindowExA(exStyle, name, "", style, place.left, place.top, place.right - place.left,
                        place.bottom - place.top, parent, nullptr, windowClass.hInstance, nullptr);
    // An activated window would be moved by the window manager of the screen that Wine draws on.
    ShowWindow(window, SW_SHOWNA);
    return window;
}

void HandleMessages()
{
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0)
        DispatchMessageA(&message);
}

LRESULT CALLBACK LogListMessages(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                 UINT_PTR /*id*/, DWORD_PTR /*data*/)
{
    // Only what other programs send; the list talks to itself, too.
    if (InSendMessage() && message >= LVM_FIRST && message < LVM_FIRST + 0x100)
        Log(std::to_string(message - LVM_FIRST) + ' ' + std::to_string(wParam) + ' ' +
            std::to_string(static_cast<int>(lParam)));
    return DefSubclassProc(window, message, wParam, lParam);
}

// The desktop's icons, below a window of the given class, and a task bar.
void RunShell(const char* top, int icons)
{
    InitCommonControls();
    MakeWindow("Shell_TrayWnd", nullptr, DefWindowProcA, {-2, 450, 642, 482}, WS_EX_TOPMOST);
    const HWND progman = MakeWindow(top, nullptr, EndOnDestroy, {0, 0, 640, 480});
    const HWND view = MakeWindow("SHELLDLL_DefView", progman, DefWindowProcA, {0, 0, 640, 480});
    const HWND list = CreateWindowExA(0, WC_LISTVIEWA, "", WS_CHILD | WS_VISIBLE | LVS_ICON, 0, 0,
                                      640, 480, view, nullptr, GetModuleHandleA(nullptr), nullptr);
    char text[] = "Icon";
    for (int i = 0; i < icons; i++) {
        LVITEMA item{};
        item.mask = LVIF_TEXT;
        item.pszText = text;
        SendMessageA(list, LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
    }
    SendMessageA(list, LVM_SETTEXTBKCOLOR, 0, 0x112233);
    SetWindowSubclass(list, LogListMessages, 1, 0);
    HandleMessages();
}

LRESULT CALLBACK AnswerAsVeyra(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == RegisterWindowMessageA(murala::GetDesktopMessage)) {
        Log(murala::GetDesktopMessage);
        SendMessageA(reinterpret_cast<HWND>(lParam),
                     RegisterWindowMessageA(murala::TellDesktopMessage), 0, 3);
        return 0;
    }
    if (message == RegisterWindowMessageA(murala::WallpaperChangeMessage))
        Log(murala::WallpaperChangeMessage);
    return EndOnDestroy(window, message, wParam, lParam);
}

void RunWindow(const char* name, WNDPROC procedure)
{
    MakeWindow(name, nullptr, procedure, {0, 0, 10, 10});
    HandleMessages();
}

[[noreturn]] void HoldStartLock()
{
    const auto link = murala::NewInstanceLink();
    link->Lock();
    Log("locked");
    Sleep(INFINITE);
    std::exit(0);
}

// As a program does that knows nothing but the semaphore.
[[noreturn]] void HoldSemaphore()
{
    const HANDLE semaphore = CreateSemaphoreA(nullptr, 1, 1, murala::StartLockName);
    WaitForSingleObject(semaphore, INFINITE);
    Log("locked");
    Sleep(INFINITE);
    std::exit(0);
}

// Installs the pictures one after the other, each for as long as the log is there.
void SetWallpapers(int count, char** pictures)
{
    const auto desktop = murala::NewDesktop("");
    for (int i = 0; i < count; i++) {
        Log(desktop->SetWallpaperFile(pictures[i]) ? "set" : "failed");
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
    if (mode == "shell")
        RunShell("Progman", 3);
    else if (mode == "empty-shell")
        RunShell("Progman", 0);
    else if (mode == "worker-shell")
        RunShell("WorkerW", 3);
    else if (mode == "veyra")
        RunWindow(murala::VeyraWindowClass, AnswerAsVeyra);
    else if (mode == "rovane")
        RunWindow(murala::RovaneWindowClass, EndOnDestroy);
    else if (mode == "saver")
        RunWindow("WindowsScreenSaverClass", EndOnDestroy);
    else if (mode == "lock")
        HoldStartLock();
    else if (mode == "semaphore")
        HoldSemaphore();
    else if (mode == "wallpapers")
        SetWallpapers(count - 3, arguments + 3);
    else
        Log(GetCommandLineA());
    return 0;
}
