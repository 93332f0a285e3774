// Messages to windows of other programs, which may hang.
#pragma once

#include <windows.h>

#include <optional>

namespace murala
{

// Waits a second at the most for the answer, and not at all for a window that is known to hang.
// Messages that others send to this program meanwhile are handled. Nothing when no answer comes.
inline std::optional<LRESULT> AskProgram(HWND window, UINT message, WPARAM wParam = 0,
                                         LPARAM lParam = 0)
{
    DWORD_PTR answer = 0;
    if (SendMessageTimeoutA(window, message, wParam, lParam, SMTO_NORMAL | SMTO_ABORTIFHUNG, 1000,
                            &answer) == 0)
        return std::nullopt;
    return static_cast<LRESULT>(answer);
}

// The same, but 0 when no answer comes.
inline LRESULT SendToProgram(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
{
    return AskProgram(window, message, wParam, lParam).value_or(0);
}

} // namespace murala
