// A font as the user chooses it, and its record in an INI file.
#pragma once

#include "uColor.h"
#include "uIniFile.h"

#include <string>
#include <string_view>

namespace murala
{

struct TMuFont {
    std::string Name;
    int Size = 8; // points
    bool Bold = false, Italic = false, Underline = false, Strikeout = false;
    TColor Color = 0;
    friend bool operator==(const TMuFont&, const TMuFont&) = default;
};

// Seven keys, each with the prefix in front: "FontName", "FontSize", "FontStyleBold",
// "FontStyleItalic", "FontStyleUnderline", "FontStyleStrikeout", "FontColor". What is missing or
// cannot be read comes from `otherwise`.
TMuFont ReadFont(const TIniFile& file, std::string_view section, std::string_view prefix,
                 const TMuFont& otherwise);
void WriteFont(TIniFile& file, std::string_view section, std::string_view prefix,
               const TMuFont& font);

} // namespace murala
