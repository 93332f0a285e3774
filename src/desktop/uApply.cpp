#include "uApply.h"

namespace murala
{

void WriteTileWallpaper(TDesktop& desktop, int mode)
{
    if (mode == 0)
        desktop.StoreTileFlag("1");
    else if (mode == 1)
        desktop.StoreTileFlag("0");
}

void ApplyDesktopColor(TDesktop& desktop, TColor color)
{
    desktop.StoreDesktopColorText(ColorToIniText(color));
    desktop.SetDesktopColor(color);
}

} // namespace murala
