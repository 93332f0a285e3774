// Titles made from file names.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace murala
{

// Find text and replacement, applied in order.
using TConvertList = std::vector<std::pair<std::string, std::string>>;

TConvertList DefaultConvertList();

struct TTitleRules {
    bool CapitaliseFirstLetter = true;
    bool SpaceOutWords = true;
    int MaxTitleLength = 40; // in characters
    TConvertList ConvertList = DefaultConvertList();
};

std::string MakeTitle(std::string_view fileName, const TTitleRules& rules);

} // namespace murala
