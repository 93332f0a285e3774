#include "uMessageLoop.h"

#include <windows.h>

namespace murala
{

namespace
{

constexpr DWORD LongestWaitMs = 50;

// By the W functions: by the A functions the toolkit's windows would get letters as question marks.
bool HandleMessageIfPending()
{
    MSG message;
    if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) == FALSE)
        return false;
    if (message.message == WM_QUIT) {
        PostQuitMessage(static_cast<int>(message.wParam)); // so that the main loop ends, too
        return false;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
    return true;
}

class TWindowsMessageLoop : public TMessageLoop
{
public:
    std::int64_t Milliseconds() override { return static_cast<std::int64_t>(GetTickCount64()); }
    void Sleep(int milliseconds) override { ::Sleep(static_cast<DWORD>(milliseconds)); }

    void HandleOneMessage() override
    {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, LongestWaitMs, QS_ALLINPUT);
        HandleMessageIfPending();
    }

    void HandlePendingMessages() override
    {
        while (HandleMessageIfPending()) {
        }
    }
};

} // namespace

std::unique_ptr<TMessageLoop> NewMessageLoop()
{
    return std::make_unique<TWindowsMessageLoop>();
}

} // namespace murala
