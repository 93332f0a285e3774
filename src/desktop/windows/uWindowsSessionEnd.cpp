#include "uDoor.h"
#include "uSessionEnd.h"

#include <windows.h>

#include <commctrl.h>

#include <utility>

namespace murala
{

namespace
{

class TWindowsSessionEnd : public TSessionEnd
{
public:
    TWindowsSessionEnd() = default;
    TWindowsSessionEnd(const TWindowsSessionEnd&) = delete;
    TWindowsSessionEnd& operator=(const TWindowsSessionEnd&) = delete;
    ~TWindowsSessionEnd() override
    {
        if (m_window != nullptr)
            RemoveWindowSubclass(m_window, OnMessage, SubclassId);
    }

    void ListenToQuestion(std::function<void()> onQuestion) override
    {
        m_onQuestion = std::move(onQuestion);
    }

    void Listen(void* mainWindow, std::function<void()> onEnd) override
    {
        m_onEnd = std::move(onEnd);
        m_window = static_cast<HWND>(mainWindow);
        SetWindowSubclass(m_window, OnMessage, SubclassId, reinterpret_cast<DWORD_PTR>(this));
    }

private:
    static constexpr UINT_PTR SubclassId = WM_ENDSESSION;

    static void Tell(const std::function<void()>& handle) noexcept
    {
        if (handle)
            NoThrow(handle);
    }

    // Keeps both messages from the toolkit: it would close the window at the question, and at the
    // end delete all windows, also dialogs that are still open.
    static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                      UINT_PTR /*id*/, DWORD_PTR self)
    {
        auto* end = reinterpret_cast<TWindowsSessionEnd*>(self);
        if (message == WM_QUERYENDSESSION) {
            Tell(end->m_onQuestion);
            return TRUE;
        }
        if (message == WM_ENDSESSION) {
            if (wParam != FALSE)
                Tell(std::exchange(end->m_onEnd, nullptr));
            return 0;
        }
        if (message == WM_NCDESTROY) {
            RemoveWindowSubclass(window, OnMessage, SubclassId);
            end->m_window = nullptr;
        }
        return DefSubclassProc(window, message, wParam, lParam);
    }

    HWND m_window = nullptr;
    std::function<void()> m_onQuestion, m_onEnd;
};

} // namespace

std::unique_ptr<TSessionEnd> NewSessionEnd()
{
    return std::make_unique<TWindowsSessionEnd>();
}

} // namespace murala
