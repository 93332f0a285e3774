#include "uDoor.h"
#include "uInstanceLink.h"
#include "uWindowsHandles.h"

#include <commctrl.h>

namespace murala
{

namespace
{

constexpr DWORD SliceMs = 250;

// When a process that holds the semaphore is killed, the semaphore stays taken for as long as
// another process has it open. So starts queue at a mutex, which the system frees when its process
// ends. Only the first in the queue waits for the semaphore, and it closes and opens it again and
// again: once nobody else has it open, the system makes a new one, which is free.
class TStartLock
{
public:
    TStartLock() : m_turn(CreateMutexA(nullptr, FALSE, "Murala.Lock.Turn"))
    {
        if (m_turn)
            WaitForSingleObject(m_turn.get(), INFINITE);
        do {
            m_semaphore.reset();
            m_semaphore.reset(CreateSemaphoreA(nullptr, 1, 1, StartLockName));
        } while (m_semaphore && WaitForSingleObject(m_semaphore.get(), SliceMs) == WAIT_TIMEOUT);
    }
    TStartLock(const TStartLock&) = delete;
    TStartLock& operator=(const TStartLock&) = delete;
    ~TStartLock()
    {
        if (m_semaphore)
            ReleaseSemaphore(m_semaphore.get(), 1, nullptr);
        if (m_turn)
            ReleaseMutex(m_turn.get());
    }

private:
    THandle m_turn;
    THandle m_semaphore;
};

class TWindowsInstanceLink : public TInstanceLink
{
public:
    TWindowsInstanceLink() = default;
    TWindowsInstanceLink(const TWindowsInstanceLink&) = delete;
    TWindowsInstanceLink& operator=(const TWindowsInstanceLink&) = delete;
    ~TWindowsInstanceLink() override
    {
        if (m_listening != nullptr)
            RemoveWindowSubclass(m_listening, OnMessage, SubclassId);
    }

    bool IsRunning() override { return Find() != nullptr; }

    bool PostWake() override
    {
        const HWND window = Find();
        DWORD process = 0;
        if (GetWindowThreadProcessId(window, &process) != 0)
            AllowSetForegroundWindow(process); // the user started this one
        return window != nullptr &&
               (PostMessageA(window, WakeMessage, 0, 0) != FALSE || IsWindow(window) != FALSE);
    }

    void Lock() override { m_lock = std::make_unique<TStartLock>(); }
    void Unlock() override { m_lock.reset(); }

    void Listen(void* mainWindow, std::function<void()> onWake) override
    {
        m_onWake = std::move(onWake);
        if (mainWindow == nullptr)
            m_ownWindow = MakeWindow();
        m_listening = mainWindow != nullptr ? static_cast<HWND>(mainWindow) : m_ownWindow.get();
        SetWindowSubclass(m_listening, OnMessage, SubclassId, reinterpret_cast<DWORD_PTR>(this));
        // Without this a copy that runs as administrator would not be sent messages by ordinary
        // ones.
        ChangeWindowMessageFilterEx(m_listening, WakeMessage, MSGFLT_ALLOW, nullptr);
    }

private:
    static constexpr UINT_PTR SubclassId = WakeMessage;

    static HWND Find() { return FindWindowA(MainWindowClass, MainWindowCaption); }

    static TWindow MakeWindow()
    {
        WNDCLASSA windowClass{};
        windowClass.lpfnWndProc = DefWindowProcA;
        windowClass.hInstance = GetModuleHandleA(nullptr);
        windowClass.lpszClassName = MainWindowClass;
        RegisterClassA(&windowClass);
        return TWindow(CreateWindowExA(WS_EX_TOOLWINDOW, MainWindowClass, MainWindowCaption,
                                       WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                                       windowClass.hInstance, nullptr));
    }

    static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                      UINT_PTR /*id*/, DWORD_PTR self)
    {
        auto* link = reinterpret_cast<TWindowsInstanceLink*>(self);
        if (message == WakeMessage) {
            NoThrow(link->m_onWake);
            return 0;
        }
        // Who asks a program to end asks all its windows; the main window decides, and while it
        // stays, other copies have to find this one.
        if (message == WM_CLOSE && window == link->m_ownWindow.get())
            return 0;
        if (message == WM_NCDESTROY) {
            RemoveWindowSubclass(window, OnMessage, SubclassId);
            link->m_listening = nullptr;
        }
        return DefSubclassProc(window, message, wParam, lParam);
    }

    std::unique_ptr<TStartLock> m_lock;
    std::function<void()> m_onWake;
    HWND m_listening = nullptr;
    TWindow m_ownWindow;
};

} // namespace

std::unique_ptr<TInstanceLink> NewInstanceLink()
{
    return std::make_unique<TWindowsInstanceLink>();
}

} // namespace murala
