// Gradients as wallpapers.
#pragma once

#include "uGradientShade.h"
#include "uLibraryDesk.h"

namespace murala
{

// Saves the gradient, as long as the screen, in the program folder and adds it to the category
// "Gradients"; it is then the last and the selected wallpaper, with transparent icons when the
// selected one before had them. Throws EFileError when it cannot be saved; nothing is added then.
void AddGradient(TCore& core, TLibraryDesk& desk, TStorage& storage, const TGradientShade& shade,
                 TGradientDirection direction);

} // namespace murala
