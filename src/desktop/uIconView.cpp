#include "uIconView.h"

namespace murala
{

namespace
{

// Messages of the system's list view and the style that they ask for here.
constexpr unsigned GetItemCount = 0x1004;        // LVM_GETITEMCOUNT
constexpr unsigned RedrawItems = 0x1015;         // LVM_REDRAWITEMS
constexpr unsigned GetTextBackColor = 0x1025;    // LVM_GETTEXTBKCOLOR
constexpr unsigned SetTextBackColor = 0x1026;    // LVM_SETTEXTBKCOLOR
constexpr unsigned SetExtendedStyle = 0x1036;    // LVM_SETEXTENDEDLISTVIEWSTYLE
constexpr unsigned GetExtendedStyle = 0x1037;    // LVM_GETEXTENDEDLISTVIEWSTYLE
constexpr std::intptr_t RegionalStyle = 0x200;   // LVS_EX_REGIONAL
constexpr std::intptr_t AllStyles = 0xFFFFFFFFL; // as far as the mask lets them through

constexpr std::string_view ViewClass = "SHELLDLL_DefView";

// Since Windows 7 the shell may move the icons' view out of Progman into a window beside it.
TWindowId FindViewInWorkers(TShellWindows& shell)
{
    const TWindowId first = shell.FirstChild(shell.DesktopWindow());
    for (TWindowId window = first; window != 0;) {
        if (shell.ClassName(window) == "WorkerW")
            if (const TWindowId view = FindChildWindowByClass(shell, window, ViewClass))
                return view;
        window = shell.NextSibling(window);
        if (window == first)
            break;
    }
    return 0;
}

} // namespace

TWindowId FindChildWindowByClass(TShellWindows& shell, TWindowId parent, std::string_view name)
{
    const TWindowId first = parent != 0 ? shell.FirstChild(parent) : 0;
    TWindowId window = first;
    while (window != 0 && shell.ClassName(window) != name) {
        window = shell.NextSibling(window);
        if (window == first) // a chain that is changed meanwhile may come round
            return 0;
    }
    return window;
}

TWindowId FindProgman(TShellWindows& shell)
{
    return FindChildWindowByClass(shell, shell.DesktopWindow(), "Progman");
}

TWindowId FindDesktopView(TShellWindows& shell)
{
    const TWindowId view = FindChildWindowByClass(shell, FindProgman(shell), ViewClass);
    return view != 0 ? view : FindViewInWorkers(shell);
}

TWindowId FindDesktopListView(TShellWindows& shell)
{
    return FindChildWindowByClass(shell, FindDesktopView(shell), "SysListView32");
}

TWindowId FindTaskBar(TShellWindows& shell)
{
    return FindChildWindowByClass(shell, shell.DesktopWindow(), "Shell_TrayWnd");
}

TRect GetTaskBarRect(TShellWindows& shell)
{
    const TWindowId taskBar = FindTaskBar(shell);
    const auto rect = taskBar != 0 ? shell.WindowRect(taskBar) : std::nullopt;
    if (!rect)
        throw ETaskBarMissing();
    return *rect;
}

TColor GetIconTextBackColor(TShellWindows& shell)
{
    const TWindowId list = FindDesktopListView(shell);
    return list != 0 ? static_cast<TColor>(shell.Send(list, GetTextBackColor, 0, 0)) : 0;
}

void SetIconTextBackColor(TShellWindows& shell, TColor color)
{
    const TWindowId list = FindDesktopListView(shell);
    if (list == 0)
        return;
    shell.Send(list, SetTextBackColor, 0, static_cast<std::intptr_t>(color));
    const std::intptr_t count = shell.Send(list, GetItemCount, 0, 0);
    shell.Send(list, RedrawItems, 0, count - 1);
    shell.Update(list);
}

void SetIconsTransparent(TShellWindows& shell)
{
    if (GetIconTextBackColor(shell) != NoColor)
        SetIconTextBackColor(shell, NoColor);
}

void SetIconsOpaque(TShellWindows& shell, TDesktop& desktop)
{
    const TColor color = desktop.DesktopColor();
    if (color != GetIconTextBackColor(shell))
        SetIconTextBackColor(shell, color);
}

std::optional<std::vector<TRect>> GetIconRegion(TShellWindows& shell)
{
    const TWindowId list = FindDesktopListView(shell);
    if (list == 0)
        return std::nullopt;
    const std::intptr_t style = shell.Send(list, GetExtendedStyle, 0, 0);
    // In this style a list gives itself a region of its icons and labels.
    shell.Send(list, SetExtendedStyle, RegionalStyle, AllStyles);
    auto region = shell.WindowRegion(list);
    shell.Send(list, SetExtendedStyle, RegionalStyle, style);
    return region;
}

} // namespace murala
