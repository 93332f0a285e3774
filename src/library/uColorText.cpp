#include "uColorText.h"

namespace murala
{

std::string ColorToIniText(TColor color)
{
    return std::to_string(color & 0xFFU) + ' ' + std::to_string((color >> 8U) & 0xFFU) + ' ' +
           std::to_string((color >> 16U) & 0xFFU);
}

TColor IniTextToColor(std::string_view text)
{
    // The third piece is the whole rest, so that a fourth number makes the text malformed.
    TColor color = 0;
    for (unsigned shift = 0; shift <= 16U; shift += 8U) {
        const std::size_t end = shift < 16U ? text.find(' ') : std::string_view::npos;
        const auto value = ParseInteger(text.substr(0, end));
        if (!value)
            throw EConvertError("\"" + std::string(text.substr(0, end)) + "\" is not an integer");
        color += static_cast<TColor>(*value) << shift;
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return color;
}

} // namespace murala
