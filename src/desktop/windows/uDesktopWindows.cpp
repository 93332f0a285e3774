#include "uDesktopWindows.h"

#include <array>
#include <string>

namespace murala
{

namespace
{

constexpr std::string_view ViewClass = "SHELLDLL_DefView";

std::string ClassName(HWND window)
{
    std::array<char, 80> name{};
    const int length = GetClassNameA(window, name.data(), static_cast<int>(name.size()));
    return {name.data(), static_cast<std::size_t>(length)};
}

// The window behind this one; null at the end. Windows may move while we walk: coming back to the
// first one ends the walk, too.
HWND NextSibling(HWND window, HWND first)
{
    const HWND next = GetWindow(window, GW_HWNDNEXT);
    return next == first ? nullptr : next;
}

// Since Windows 7 the shell may move the icons' view out of Progman into a window beside it.
HWND FindViewInWorkers()
{
    const HWND first = GetWindow(GetDesktopWindow(), GW_CHILD);
    for (HWND window = first; window != nullptr; window = NextSibling(window, first))
        if (ClassName(window) == "WorkerW")
            if (const HWND view = FindChildWindowByClass(window, ViewClass))
                return view;
    return nullptr;
}

} // namespace

HWND FindChildWindowByClass(HWND parent, std::string_view name)
{
    const HWND first = parent != nullptr ? GetWindow(parent, GW_CHILD) : nullptr;
    HWND window = first;
    while (window != nullptr && ClassName(window) != name)
        window = NextSibling(window, first);
    return window;
}

HWND FindProgman()
{
    return FindChildWindowByClass(GetDesktopWindow(), "Progman");
}

HWND FindDesktopView()
{
    const HWND view = FindChildWindowByClass(FindProgman(), ViewClass);
    return view != nullptr ? view : FindViewInWorkers();
}

HWND FindDesktopListView()
{
    return FindChildWindowByClass(FindDesktopView(), "SysListView32");
}

HWND FindTaskBar()
{
    return FindChildWindowByClass(GetDesktopWindow(), "Shell_TrayWnd");
}

UINT TaskBarDpi()
{
    const UINT dpi = GetDpiForWindow(FindTaskBar());
    return dpi != 0 ? dpi : GetDpiForSystem();
}

} // namespace murala
