// The desktop's icon list: its labels, and the area that it covers. Every call looks for it again,
// so that a restarted shell is found.
#pragma once

#include "uDesktop.h"

#include <memory>
#include <string>
#include <vector>

namespace murala
{

inline constexpr TColor NoColor = 0xFFFFFFFF; // CLR_NONE

// The area of the icons and their labels, as rectangles on the desktop.
struct TIconRegion {
    std::vector<TRect> Rects;
    std::string Problem; // why it is not known, for the user; empty when it is
    bool IsKnown() const { return Problem.empty(); }
};

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

    virtual TIconRegion GetIconRegion() = 0;
};

std::unique_ptr<TIconView> NewIconView();

// Neither changes anything when the labels are so already.
void SetIconsTransparent(TIconView& icons);
void SetIconsOpaque(TIconView& icons, TDesktop& desktop);

} // namespace murala
