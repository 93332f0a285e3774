// Colours as text, as the list file and the system's settings hold them.
#pragma once

#include "uColor.h"
#include "uText.h"

#include <string>
#include <string_view>

namespace murala
{

// "red green blue", decimal, single blanks. The reader throws EConvertError.
std::string ColorToIniText(TColor color);
TColor IniTextToColor(std::string_view text);

} // namespace murala
