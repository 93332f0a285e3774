#include "uDesktopWindow.h"

#include "uScreens.h"
#include "uX11.h"

#include <X11/Xatom.h>

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace murala
{

namespace
{

constexpr int Levels = 2; // window managers put windows into frames

bool IsDesktop(Display* display, Window window)
{
    const Atom desktop = XInternAtom(display, "_NET_WM_WINDOW_TYPE_DESKTOP", True);
    return desktop != None &&
           ReadProperty32(display, window, "_NET_WM_WINDOW_TYPE", XA_ATOM) == desktop;
}

// The program's name and its class.
std::pair<std::string, std::string> ClassOf(Display* display, Window window)
{
    XClassHint hint{};
    if (XGetClassHint(display, window, &hint) == 0)
        return {};
    const TXOwned<char> name(hint.res_name);
    const TXOwned<char> className(hint.res_class);
    return {name ? name.get() : "", className ? className.get() : ""};
}

bool IsDesktopOf(Display* display, Window window, std::string_view programClass)
{
    if (!IsDesktop(display, window))
        return false;
    const auto [name, className] = ClassOf(display, window);
    return name == programClass || className == programClass;
}

// Smaller windows of this type show the weather or the time.
bool CoversAMonitor(Display* display, Window window)
{
    XWindowAttributes attributes{};
    if (XGetWindowAttributes(display, window, &attributes) == 0 ||
        attributes.map_state == IsUnmapped)
        return false;
    return std::ranges::any_of(ReadScreens().Monitors, [&](const TMonitor& monitor) {
        return attributes.width >= monitor.Place.Width() &&
               attributes.height >= monitor.Place.Height();
    });
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

template<typename TIsMeant>
Window FindBelow(Display* display, Window window, const TIsMeant& isMeant, int levels = Levels)
{
    for (const Window child : Children(display, window)) {
        if (isMeant(display, child))
            return child;
        if (levels > 1)
            if (const Window found = FindBelow(display, child, isMeant, levels - 1))
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
        FindBelow(display.get(), DefaultRootWindow(display.get()),
                  [&](Display* on, Window each) { return IsDesktopOf(on, each, programClass); });
    XWindowAttributes attributes{};
    if (window == None || XGetWindowAttributes(display.get(), window, &attributes) == 0)
        return std::nullopt;
    return TSize{attributes.width, attributes.height};
}

std::string DesktopWindowClass()
{
    const TSharedDisplay display = SharedDisplay();
    if (!display)
        return "";
    TXErrorGuard guard(display.get());
    const Window window =
        FindBelow(display.get(), DefaultRootWindow(display.get()), [](Display* on, Window each) {
            return IsDesktop(on, each) && CoversAMonitor(on, each);
        });
    return window != None ? ClassOf(display.get(), window).second : "";
}

} // namespace murala
