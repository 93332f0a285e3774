// Fonts of the window system and ours.
#pragma once

#include "uFont.h"

#include <wx/font.h>

class wxFontData;

namespace murala
{

wxFont ToWxFont(const TMuFont& font);
// What was chosen in a font dialog. What the system's dialog cannot ask for stays as it is in
// `before`.
TMuFont FromWxFont(const wxFontData& chosen, const TMuFont& before);

} // namespace murala
