#include "uInstanceLink.h"
#include "uSendMessage.h"
#include "uSiblings.h"

#include <commctrl.h>

namespace murala
{

namespace
{

// This process's own main window, as others find it.
HWND OwnMainWindow()
{
    HWND window = nullptr;
    DWORD process = 0;
    do {
        window = FindWindowExA(nullptr, window, MainWindowClass, MainWindowCaption);
        GetWindowThreadProcessId(window, &process);
    } while (window != nullptr && process != GetCurrentProcessId());
    return window;
}

// While it lives, it reads the answer out of one registered message to a window.
class TAnswer
{
public:
    TAnswer(HWND window, UINT message) : m_window(window), m_message(message)
    {
        SetWindowSubclass(m_window, OnMessage, message, reinterpret_cast<DWORD_PTR>(this));
    }
    TAnswer(const TAnswer&) = delete;
    TAnswer& operator=(const TAnswer&) = delete;
    ~TAnswer() { RemoveWindowSubclass(m_window, OnMessage, m_message); }

    int Value() const { return m_value; }

private:
    static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                      UINT_PTR id, DWORD_PTR self)
    {
        if (message == id)
            reinterpret_cast<TAnswer*>(self)->m_value = static_cast<int>(lParam);
        return DefSubclassProc(window, message, wParam, lParam);
    }

    HWND m_window;
    UINT m_message;
    int m_value = 0;
};

class TWindowsSiblings : public TSiblings
{
public:
    int GetVeyraDesktop() override
    {
        const HWND veyra = FindVeyra();
        const HWND self = OwnMainWindow();
        if (veyra == nullptr || self == nullptr)
            return 0;
        const TAnswer answer(self, m_tellDesktop);
        SendToProgram(veyra, m_getDesktop, 0, reinterpret_cast<LPARAM>(self));
        return answer.Value();
    }

    void NotifyVeyraWallpaperChange() override
    {
        if (const HWND veyra = FindVeyra())
            SendToProgram(veyra, m_wallpaperChange);
    }

    TWindowId FindRovane() override
    {
        return reinterpret_cast<TWindowId>(FindWindowA(RovaneWindowClass, nullptr));
    }

    bool IsWindow(TWindowId window) override
    {
        return ::IsWindow(reinterpret_cast<HWND>(window)) != FALSE;
    }

    void PostClose(TWindowId window) override
    {
        PostMessageA(reinterpret_cast<HWND>(window), WM_CLOSE, 0, 0);
        // Windows of other programs are not waited for: one that hangs would hold us up.
        SendNotifyMessageA(HWND_BROADCAST, WM_NULL, 0, 0);
    }

private:
    static HWND FindVeyra() { return FindWindowA(VeyraWindowClass, nullptr); }

    UINT m_getDesktop = RegisterWindowMessageA(GetDesktopMessage);
    UINT m_tellDesktop = RegisterWindowMessageA(TellDesktopMessage);
    UINT m_wallpaperChange = RegisterWindowMessageA(WallpaperChangeMessage);
    // Rovane expects that the message is registered; Murala never sends it.
    [[maybe_unused]] UINT m_rovaneTarget = RegisterWindowMessageA(RovaneTargetMessage);
};

} // namespace

std::unique_ptr<TSiblings> NewSiblings()
{
    return std::make_unique<TWindowsSiblings>();
}

} // namespace murala
