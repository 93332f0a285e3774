// Messages to windows of other programs, which may hang.
#pragma once

#include <windows.h>

#include <optional>

namespace murala
{

// Waits for the answer, a second at the most and not for a window that is known to hang;
// messages that are sent to this program meanwhile are handled. Nothing without an answer.
inline std::optional<LRESULT> AskProgram(HWND window, UINT message, WPARAM wParam = 0,
                                         LPARAM lParam = 0)
{
    DWORD_PTR answer = 0;
    if (SendMessageTimeoutA(window, message, wParam, lParam, SMTO_NORMAL | SMTO_ABORTIFHUNG, 1000,
                            &answer) == 0)
        return std::nullopt;
    return static_cast<LRESULT>(answer);
}

// The same; 0 without an answer.
inline LRESULT SendToProgram(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
{
    return AskProgram(window, message, wParam, lParam).value_or(0);
}

} // namespace murala
