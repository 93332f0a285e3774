// Converts texts between the toolkit and ours.
#pragma once

#include <string>
#include <string_view>

#include <wx/string.h>

namespace murala
{

// Bytes that are not UTF-8 are read as the code page that they most likely come from.
wxString ToWx(std::string_view text);
// The caption without the "&" that marks its access key.
wxString PlainCaption(std::string_view caption);

} // namespace murala
