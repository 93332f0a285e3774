#include "uTitle.h"

#include "uPath.h"
#include "uText.h"

#include <algorithm>

namespace murala
{

namespace
{

// A blank before every capital letter, also before one that already follows a blank.
std::string SpaceOutCapitals(std::string_view text)
{
    std::string result;
    for (char c : text) {
        if (c >= 'A' && c <= 'Z')
            result += ' ';
        result += c;
    }
    return result;
}

} // namespace

TConvertList DefaultConvertList()
{
    return {
        {"_", " "},       {"1600x1200", ""}, {"1280x1024", ""}, {"1152x864", ""},
        {"1024x768", ""}, {"960x720", ""},   {"800x600", ""},   {"640x480", ""},
        {"640x400", ""},  {"()", ""},        {"%20", " "},
    };
}

std::string MakeTitle(std::string_view fileName, const TTitleRules& rules)
{
    std::string title = FileNamePart(fileName);
    title.resize(title.size() - ExtensionPart(fileName).size());
    if (rules.CapitaliseFirstLetter && !title.empty())
        title.replace(0, 1, UpperAscii(title.substr(0, 1)));
    for (const auto& [find, replacement] : rules.ConvertList)
        title = ReplaceAll(title, find, replacement);
    if (rules.SpaceOutWords)
        title = SpaceOutCapitals(title);
    const int limit = std::max(rules.MaxTitleLength, 0);
    return std::string(Trim(FirstCharacters(title, static_cast<std::size_t>(limit))));
}

} // namespace murala
