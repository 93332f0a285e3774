// Texts of the window system and ours.
#pragma once

#include <string>
#include <string_view>

#include <wx/string.h>

namespace murala
{

// Bytes that are not UTF-8 are shown as what they most likely mean.
wxString ToWx(std::string_view text);
// A caption with its access key marked becomes plain text.
wxString PlainCaption(std::string_view caption);

} // namespace murala
