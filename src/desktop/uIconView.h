// The desktop's icon list: its labels, and the area that it covers. Every call looks the windows up
// again, so that a restarted shell is found.
#pragma once

#include "uDesktop.h"
#include "uShellWindows.h"

#include <optional>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace murala
{

inline constexpr TColor NoColor = 0xFFFFFFFF; // CLR_NONE

class ETaskBarMissing : public std::runtime_error
{
public:
    ETaskBarMissing() : std::runtime_error("The task bar window cannot be located") {}
};

// A direct child whose class is exactly `name`.
TWindowId FindChildWindowByClass(TShellWindows& shell, TWindowId parent, std::string_view name);

// Each 0 when it is not there.
TWindowId FindProgman(TShellWindows& shell);
TWindowId FindDesktopView(TShellWindows& shell);
TWindowId FindDesktopListView(TShellWindows& shell);
TWindowId FindTaskBar(TShellWindows& shell);

// Throws ETaskBarMissing.
TRect GetTaskBarRect(TShellWindows& shell);

// 0 when there is no icon list.
TColor GetIconTextBackColor(TShellWindows& shell);
// Sets it and has all labels painted again.
void SetIconTextBackColor(TShellWindows& shell, TColor color);
// Both send nothing but the question when the labels are so already.
void SetIconsTransparent(TShellWindows& shell);
void SetIconsOpaque(TShellWindows& shell, TDesktop& desktop);

// The area of the icons and their labels as rectangles on the desktop; nothing when there is no
// icon list. The list's style is afterwards as it was before.
std::optional<std::vector<TRect>> GetIconRegion(TShellWindows& shell);

} // namespace murala
