// Fonts of the window system and ours.
#pragma once

#include "uFont.h"

#include <wx/font.h>

class wxFontData;

namespace murala
{

// With the font that is drawn where the machine lacks the one that is named.
wxFont ToWxFont(const TMuFont& font);
// What was chosen in a font dialog that began with `before`. What the user left, and what the
// system's dialog cannot ask for, stays as it is there.
TMuFont FromWxFont(const wxFontData& chosen, const TMuFont& before);

} // namespace murala
