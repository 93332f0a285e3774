#include "uIconView.h"

namespace murala
{

void SetIconsTransparent(TIconView& icons)
{
    if (icons.GetIconTextBackColor() != NoColor)
        icons.SetIconTextBackColor(NoColor);
}

void SetIconsOpaque(TIconView& icons, TDesktop& desktop)
{
    const TColor color = desktop.DesktopColor();
    if (color != icons.GetIconTextBackColor())
        icons.SetIconTextBackColor(color);
}

} // namespace murala
