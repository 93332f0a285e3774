// The pictures of the tray icon.
#pragma once

#include "uTray.h"

#include <wx/iconbndl.h>

namespace murala
{

// The program's icon, and its evening and night.
TTrayFrames NewTrayFrames();

wxIconBundle ToIconBundle(const TIconImage& image);

} // namespace murala
