// Makes wallpapers from gradients.
#pragma once

#include "uGradientShade.h"
#include "uLibraryDesk.h"

namespace murala
{

// Saves the gradient, as high or wide as the screen, in the program folder and adds it to the
// category "Gradients". It is then the last wallpaper and the selected one, with transparent icons
// if the one selected before had them. Throws EFileError when it cannot be saved; nothing is added
// then.
void AddGradient(TCore& core, TLibraryDesk& desk, TStorage& storage, const TGradientShade& shade,
                 TGradientDirection direction);

} // namespace murala
