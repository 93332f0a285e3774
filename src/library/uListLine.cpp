#include "uListLine.h"

#include "uColorText.h"
#include "uPath.h"
#include "uText.h"
#include "uWallpaper.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <charconv>
#include <iterator>
#include <limits>

namespace murala
{

namespace
{

constexpr char Quote = '"';
constexpr int SmallestTint = -256, LargestTint = 255;
constexpr int DefaultTint = 255;

constexpr bool IsLineEnd(char character)
{
    return character == '\n' || character == '\r';
}

constexpr bool IsComma(char character)
{
    return character == ',';
}

constexpr bool IsDivider(char character)
{
    return IsComma(character) || IsLineEnd(character);
}

// The first such character at `from` or behind it; the text's size when there is none.
template<bool (*IsWanted)(char)>
std::size_t Find(std::string_view text, std::size_t from)
{
    while (from < text.size() && !IsWanted(text[from]))
        ++from;
    return std::min(from, text.size());
}

// Where the quoted field that opens at `open` has its closing quote; the text's size when it has
// none.
std::size_t ClosingQuote(std::string_view text, std::size_t open)
{
    std::size_t at = text.find(Quote, open + 1);
    while (at != std::string_view::npos && at + 1 < text.size() && text[at + 1] == Quote)
        at = text.find(Quote, at + 2);
    return std::min(at, text.size());
}

// Where the line ends that the text begins with.
std::size_t ListLineEnd(std::string_view text)
{
    for (std::size_t at = 0;; ++at) { // from field to field
        if (at < text.size() && text[at] == Quote) {
            at = ClosingQuote(text, at) + 1;
            if (at > text.size() || (at < text.size() && !IsDivider(text[at])))
                return Find<IsLineEnd>(text, 0);
        } else {
            at = Find<IsDivider>(text, at);
        }
        if (at >= text.size() || IsLineEnd(text[at]))
            return at;
    }
}

void AppendField(std::string& line, std::string_view field)
{
    line += Quote;
    if (field.find(Quote) == std::string_view::npos)
        line += field;
    else
        line += ReplaceAll(field, "\"", "\"\"");
    line += "\",";
}

void AppendField(std::string& line, std::int32_t value)
{
    std::array<char, std::numeric_limits<std::int32_t>::digits10 + 2> digits; // and a sign
    const char* const end = std::to_chars(digits.begin(), digits.end(), value).ptr;
    AppendField(line, std::string_view(digits.data(), end));
}

struct TField {
    std::string_view Raw; // a quote in a quoted field is doubled
    bool IsQuoted;
};

TField TakeField(std::string_view& rest)
{
    const bool quoted = rest.starts_with(Quote);
    const std::size_t end = quoted ? ClosingQuote(rest, 0) : Find<IsComma>(rest, 0);
    const TField field{rest.substr(quoted ? 1 : 0, end - (quoted ? 1 : 0)), quoted};
    // Behind a quoted field one character is skipped, whatever it is.
    rest.remove_prefix(std::min(end + (quoted ? 2 : 1), rest.size()));
    return field;
}

std::string TextOf(const TField& field)
{
    return field.IsQuoted && field.Raw.find(Quote) != std::string_view::npos
               ? ReplaceAll(field.Raw, "\"\"", "\"")
               : std::string(field.Raw);
}

// Takes the fields of one line in their order and names the one that is wrong.
class TFieldReader
{
public:
    explicit TFieldReader(std::string_view line) : m_rest(line) {}

    std::string Text() { return TextOf(Take()); }

    std::int32_t Integer(std::string_view name)
    {
        const TField field = Take();
        if (const auto value = ParseInteger(field.Raw))
            return *value;
        Fail(name, field, "is no integer");
    }

    std::int32_t IntegerOr(std::int32_t otherwise)
    {
        return ParseInteger(Take().Raw).value_or(otherwise);
    }

    TColor Color(std::string_view name)
    {
        const TField field = Take();
        try {
            return IniTextToColor(field.Raw);
        } catch (const EConvertError&) {
            Fail(name, field, "is no colour");
        }
    }

private:
    TField Take()
    {
        ++m_number;
        return TakeField(m_rest);
    }

    [[noreturn]] void Fail(std::string_view name, const TField& field, std::string_view why) const
    {
        throw EConvertError(FormatText("field %d (%s): \"%s\" %s",
                                       {std::to_string(m_number), name, TextOf(field), why}));
    }

    std::string_view m_rest;
    int m_number = 0;
};

TDisplayMode DisplayModeOf(std::string_view name)
{
    const auto* const known = std::ranges::find(DisplayModeNames, name);
    return known == std::end(DisplayModeNames)
               ? dmCentered
               : static_cast<TDisplayMode>(known - std::begin(DisplayModeNames));
}

std::int32_t ToTint(std::int32_t value)
{
    return std::clamp(value, SmallestTint, LargestTint);
}

TGammaStyle ToGammaStyle(std::int32_t value)
{
    return static_cast<TGammaStyle>(value >= gsNone && value <= gsVertical ? value : gsNone);
}

} // namespace

std::string_view TakeListLine(std::string_view& text)
{
    const std::string_view line = text.substr(0, ListLineEnd(text));
    text.remove_prefix(line.size());
    text.remove_prefix(text.starts_with("\r\n") ? 2 : text.empty() ? 0 : 1);
    return line;
}

void TMuWallpaper::AppendLineTo(std::string& text) const
{
    AppendField(text, m_fileName);
    AppendField(text, Title);
    AppendField(text, DisplayModeNames[DisplayMode]);
    AppendField(text, TransparentIcons ? 1 : 0);
    AppendField(text, m_thumbnailNumber);
    AppendField(text, Effect);
    for (std::int32_t tint :
         {GammaStartRed, GammaStartGreen, GammaStartBlue, GammaEndRed, GammaEndGreen, GammaEndBlue})
        AppendField(text, tint);
    AppendField(text, GammaStyle);
    AppendField(text, ColorToIniText(DesktopColor));
    AppendField(text, Category);
    text.pop_back(); // the last field has no comma behind it
}

std::string TMuWallpaper::SaveToLine() const
{
    std::string line;
    AppendLineTo(line);
    return line;
}

void TMuWallpaper::LoadFromLine(std::string_view line)
{
    TFieldReader fields(line);
    assert(!Owner);
    m_fileName = fields.Text();
    Title = fields.Text();
    DisplayMode = DisplayModeOf(fields.Text());
    TransparentIcons = fields.Integer("TransparentIcons") == 1;
    m_thumbnailNumber = fields.Integer("ThumbnailNumber");
    Effect = fields.Text();
    GammaStartRed = ToTint(fields.Integer("GammaStartRed"));
    GammaStartGreen = ToTint(fields.Integer("GammaStartGreen"));
    GammaStartBlue = ToTint(fields.Integer("GammaStartBlue"));
    GammaEndRed = ToTint(fields.IntegerOr(DefaultTint));
    GammaEndGreen = ToTint(fields.IntegerOr(DefaultTint));
    GammaEndBlue = ToTint(fields.IntegerOr(DefaultTint));
    GammaStyle = ToGammaStyle(fields.IntegerOr(gsNone));
    DesktopColor = fields.Color("DesktopColor");
    Category = fields.Text();
    if (Category.empty())
        Category = FolderPart(m_fileName);
}

} // namespace murala
