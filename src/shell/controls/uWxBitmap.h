// Converts colours and pictures between the toolkit and ours.
#pragma once

#include "uBitmap.h"

#include <wx/colour.h>
#include <wx/image.h>

namespace murala
{

wxColour ToWxColour(TColor color);
TColor FromWxColour(const wxColour& colour);
wxImage ToWxImage(const TBitmap& bitmap);

} // namespace murala
