#include "uDesktopWindow.h"

#include "uX11.h"

#include <X11/Xatom.h>

#include <string_view>
#include <vector>

namespace murala
{

namespace
{

constexpr int Levels = 2; // window managers put windows into frames

bool IsDesktopOf(Display* display, Window window, std::string_view programClass)
{
    const Atom desktop = XInternAtom(display, "_NET_WM_WINDOW_TYPE_DESKTOP", True);
    if (desktop == None ||
        ReadProperty32(display, window, "_NET_WM_WINDOW_TYPE", XA_ATOM) != desktop)
        return false;
    XClassHint hint{};
    if (XGetClassHint(display, window, &hint) == 0)
        return false;
    const TXOwned<char> name(hint.res_name);
    const TXOwned<char> className(hint.res_class);
    return (name && name.get() == programClass) || (className && className.get() == programClass);
}

std::vector<Window> Children(Display* display, Window window)
{
    Window ignored = None;
    Window* children = nullptr;
    unsigned count = 0;
    if (XQueryTree(display, window, &ignored, &ignored, &children, &count) == 0)
        return {};
    const TXOwned<Window> owner(children);
    return {children, children + count};
}

Window FindBelow(Display* display, Window window, std::string_view programClass, int levels)
{
    for (const Window child : Children(display, window)) {
        if (IsDesktopOf(display, child, programClass))
            return child;
        if (levels > 1)
            if (const Window found = FindBelow(display, child, programClass, levels - 1))
                return found;
    }
    return None;
}

} // namespace

std::optional<TSize> DesktopWindowSize(const char* programClass)
{
    const TSharedDisplay display = SharedDisplay();
    if (!display)
        return std::nullopt;
    TXErrorGuard guard(display.get()); // windows may go while they are looked at
    const Window window =
        FindBelow(display.get(), DefaultRootWindow(display.get()), programClass, Levels);
    XWindowAttributes attributes{};
    if (window == None || XGetWindowAttributes(display.get(), window, &attributes) == 0)
        return std::nullopt;
    return TSize{attributes.width, attributes.height};
}

} // namespace murala
