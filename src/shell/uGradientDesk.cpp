#include "uGradientDesk.h"

namespace murala
{

void AddGradient(TCore& core, TLibraryDesk& desk, TStorage& storage, const TGradientShade& shade,
                 TGradientDirection direction)
{
    const TMuWallpaper* before = core.Selection.Item();
    const bool transparentIcons =
        before != nullptr ? before->TransparentIcons : core.Settings.DefaultTransparentIcons;
    const std::string file =
        SaveGradient(GradientStrip(shade, direction, core.Services.Desktop.ScreenSize()),
                     core.Services.ProgramFolder);
    if (desk.AddFiles({file}, "Gradients") == 0)
        return;
    TMuWallpaper& item = *core.Selection.Item();
    if (item.TransparentIcons == transparentIcons)
        return;
    item.TransparentIcons = transparentIcons;
    core.Listeners.Tell(&TListener::ItemsChanged, TItems{&item});
    storage.SaveList();
}

} // namespace murala
