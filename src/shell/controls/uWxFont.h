// Converts fonts between the toolkit and ours.
#pragma once

#include "uFont.h"

#include <wx/font.h>

class wxFontData;

namespace murala
{

// With the family that the machine draws where it lacks the one that is named.
wxFont ToWxFont(const TMuFont& font);
// What the user chose in a font dialog that began with `before`. What the user did not change, and
// what the system's dialog cannot ask for, stays as in `before`.
TMuFont FromWxFont(const wxFontData& chosen, const TMuFont& before);

} // namespace murala
