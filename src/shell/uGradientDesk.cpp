#include "uGradientDesk.h"

namespace murala
{

void AddGradient(TCore& core, TLibraryDesk& desk, TStorage& storage, const TGradientShade& shade,
                 TGradientDirection direction)
{
    const TMuWallpaper* before = core.Selection.Item();
    const bool transparentIcons = before != nullptr
                                      ? before->TransparentIcons
                                      : core.Settings.Preferences.DefaultTransparentIcons;
    const std::string file =
        SaveGradient(GradientStrip(shade, direction, core.Services.Desktop.ScreenSize()),
                     core.Services.ProgramFolder);
    const bool isNew = desk.AddFiles({file}, "Gradients") > 0;
    const int row = core.List.IndexOfFileName(file);
    if (row < 0)
        return;
    TMuWallpaper& item = core.List.Item(row);
    if (!isNew) {
        // The list has a gradient of that name whose file is gone: the new one takes its place.
        core.List.ForgetThumbnail(file);
        item.FreeThumbnail();
        core.Selection.Select(&item);
    } else if (item.TransparentIcons == transparentIcons) {
        return;
    }
    item.TransparentIcons = transparentIcons;
    core.Listeners.Tell(&TListener::ItemsChanged, TItems{&item});
    storage.SaveList();
}

} // namespace murala
