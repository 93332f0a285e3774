#include "uFont.h"

namespace murala
{

namespace
{

struct TStyleKey {
    std::string_view Key;
    bool TMuFont::*Style;
};
constexpr TStyleKey StyleKeys[] = {
    {"FontStyleBold", &TMuFont::Bold},
    {"FontStyleItalic", &TMuFont::Italic},
    {"FontStyleUnderline", &TMuFont::Underline},
    {"FontStyleStrikeout", &TMuFont::Strikeout},
};

} // namespace

TMuFont ReadFont(const TIniFile& file, std::string_view section, std::string_view prefix,
                 const TMuFont& otherwise)
{
    const auto key = [=](std::string_view name) { return std::string(prefix).append(name); };
    TMuFont font;
    font.Name = file.ReadText(section, key("FontName"), otherwise.Name);
    font.Size = file.ReadInteger(section, key("FontSize"), otherwise.Size);
    for (const TStyleKey& style : StyleKeys)
        font.*style.Style = file.ReadBoolean(section, key(style.Key), otherwise.*style.Style);
    font.Color = static_cast<TColor>(
        file.ReadInteger(section, key("FontColor"), static_cast<std::int32_t>(otherwise.Color)));
    return font;
}

void WriteFont(TIniFile& file, std::string_view section, std::string_view prefix,
               const TMuFont& font)
{
    const auto key = [=](std::string_view name) { return std::string(prefix).append(name); };
    file.Write(section, key("FontName"), QuotedIniText(font.Name));
    file.Write(section, key("FontSize"), std::to_string(font.Size));
    for (const TStyleKey& style : StyleKeys)
        file.Write(section, key(style.Key), font.*style.Style ? "1" : "0");
    file.Write(section, key("FontColor"), std::to_string(static_cast<std::int32_t>(font.Color)));
}

} // namespace murala
