// Pictures for the program's actions, drawn as lines at whatever size the screen needs.
#pragma once

#include "uActionList.h"

#include <wx/bmpbndl.h>

namespace murala
{

// Returns an empty bundle for an action without a picture. `side` is the picture's nominal side in
// DIPs.
wxBitmapBundle ActionImage(TActionId action, int side);

} // namespace murala
