// The pictures of the tray icon.
#pragma once

#include "uTray.h"

#include <wx/iconbndl.h>
#include <wx/image.h>

namespace murala
{

// The program's picture, 64 by 64.
const wxImage& ProgramPicture();

// The program's icon (frame 0) and the two frames of its animation, evening and night.
std::shared_ptr<const TIconImage> NewTrayFrame(int frame);

wxIconBundle ToIconBundle(const TIconImage& image);

} // namespace murala
