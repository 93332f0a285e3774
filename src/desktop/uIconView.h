// The desktop's icon list: its labels, and the area that it covers. Every call looks for it again,
// so that a restarted shell is found.
#pragma once

#include "uDesktop.h"

#include <memory>
#include <optional>
#include <vector>

namespace murala
{

inline constexpr TColor NoColor = 0xFFFFFFFF; // CLR_NONE

class TIconView
{
public:
    virtual ~TIconView() = default;

    // Whether the desktop has an icon list that can be asked. Where it has none, the other calls do
    // nothing.
    virtual bool CanBeAsked() = 0;

    // Of the labels; 0 when there is no icon list.
    virtual TColor GetIconTextBackColor() = 0;
    // Sets it and has all labels painted again.
    virtual void SetIconTextBackColor(TColor color) = 0;

    // The area of the icons and their labels as rectangles on the desktop; nothing when there is no
    // icon list.
    virtual std::optional<std::vector<TRect>> GetIconRegion() = 0;
};

std::unique_ptr<TIconView> NewIconView();

// Both ask only, when the labels are so already.
void SetIconsTransparent(TIconView& icons);
void SetIconsOpaque(TIconView& icons, TDesktop& desktop);

} // namespace murala
