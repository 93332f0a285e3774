// Messages to windows of other programs, which may hang.
#pragma once

#include <windows.h>

namespace murala
{

// Waits for the answer, a second at the most and not for a window that is known to hang;
// messages that are sent to this program meanwhile are handled. 0 without an answer.
inline LRESULT SendToProgram(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
{
    DWORD_PTR answer = 0;
    SendMessageTimeoutA(window, message, wParam, lParam, SMTO_NORMAL | SMTO_ABORTIFHUNG, 1000,
                        &answer);
    return static_cast<LRESULT>(answer);
}

} // namespace murala
