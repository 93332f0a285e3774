// The windows of the shell: the desktop's icon list and the task bar.
#pragma once

#include "uGeometry.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace murala
{

// 0: no window.
using TWindowId = std::uintptr_t;

// One call of the window system each. A home whose desktop has no such windows has no desktop
// window either, so that nothing is ever found.
class TShellWindows
{
public:
    virtual ~TShellWindows() = default;

    virtual TWindowId DesktopWindow() = 0;
    virtual TWindowId FirstChild(TWindowId window) = 0;
    virtual TWindowId NextSibling(TWindowId window) = 0;
    // Up to 79 characters; empty for no window.
    virtual std::string ClassName(TWindowId window) = 0;
    // On the screen; empty when it fails.
    virtual std::optional<TRect> WindowRect(TWindowId window) = 0;
    // The rectangles of the window's region, in the window's coordinates; none when it has no
    // region.
    virtual std::vector<TRect> WindowRegion(TWindowId window) = 0;
    // 0 when the window does not answer.
    virtual std::intptr_t Send(TWindowId window, unsigned message, std::uintptr_t wParam,
                               std::intptr_t lParam) = 0;
    virtual void Update(TWindowId window) = 0;
};

std::unique_ptr<TShellWindows> NewShellWindows();

} // namespace murala
