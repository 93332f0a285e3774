#include "uText.h"

#include <algorithm>
#include <charconv>

namespace murala
{

namespace
{

bool IsBlankOrControl(char c)
{
    return static_cast<unsigned char>(c) <= ' ';
}

bool IsContinuationByte(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

// Bytes of the character that the text begins with, 0 when it is none (an overlong form, half of a
// surrogate pair and what lies behind U+10FFFF are none).
std::size_t CharacterLength(std::string_view text)
{
    const auto byte = [text](std::size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
    };
    const unsigned first = byte(0);
    const std::size_t length = first < 0x80                    ? 1
                               : first >= 0xC2 && first < 0xE0 ? 2
                               : first >= 0xE0 && first < 0xF0 ? 3
                               : first >= 0xF0 && first < 0xF5 ? 4
                                                               : 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((byte(i) & 0xC0U) != 0x80U)
            return 0;
    const bool isBad = (first == 0xE0 && byte(1) < 0xA0) || (first == 0xED && byte(1) >= 0xA0) ||
                       (first == 0xF0 && byte(1) < 0x90) || (first == 0xF4 && byte(1) >= 0x90);
    return isBad ? 0 : length;
}

// Windows-1252 from 0x80 to 0x9F; from there on it is Latin-1.
constexpr std::uint16_t Windows1252[] = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178,
};

void AppendWindows1252(std::string& text, char c)
{
    const auto byte = static_cast<unsigned char>(c);
    const unsigned code = byte < 0xA0 ? Windows1252[byte - 0x80] : byte;
    if (code >= 0x800) {
        text += static_cast<char>(0xE0U | (code >> 12U));
        text += static_cast<char>(0x80U | ((code >> 6U) & 0x3FU));
    } else {
        text += static_cast<char>(0xC0U | (code >> 6U));
    }
    text += static_cast<char>(0x80U | (code & 0x3FU));
}

} // namespace

std::optional<std::int32_t> ParseInteger(std::string_view text)
{
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    if (text.size() > 1 && text.front() == '+' && text[1] != '-')
        text.remove_prefix(1);
    std::int32_t value = 0;
    const char* end = text.data() + text.size();
    auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end)
        return std::nullopt;
    return value;
}

std::string_view Trim(std::string_view text)
{
    while (!text.empty() && IsBlankOrControl(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlankOrControl(text.back()))
        text.remove_suffix(1);
    return text;
}

static char UpperAscii(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

std::string UpperAscii(std::string_view text)
{
    std::string upper(text);
    for (char& c : upper)
        c = UpperAscii(c);
    return upper;
}

bool SameTextAscii(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return UpperAscii(x) == UpperAscii(y); });
}

std::string ReplaceAll(std::string_view text, std::string_view find, std::string_view replacement)
{
    if (find.empty())
        return std::string(text);
    std::string result;
    std::size_t from = 0;
    for (std::size_t hit; (hit = text.find(find, from)) != std::string_view::npos;
         from = hit + find.size()) {
        result.append(text, from, hit - from);
        result.append(replacement);
    }
    return result.append(text, from);
}

std::string FormatText(std::string_view format, std::initializer_list<std::string_view> values)
{
    std::string result;
    const auto* value = values.begin();
    for (std::size_t i = 0; i < format.size(); ++i) {
        const char next = i + 1 < format.size() ? format[i + 1] : '\0';
        if (format[i] != '%' || (next != 's' && next != 'd' && next != '%')) {
            result += format[i];
            continue;
        }
        ++i;
        if (next == '%')
            result += '%';
        else if (value != values.end())
            result += *value++;
    }
    return result;
}

std::string_view FirstCharacters(std::string_view text, std::size_t count)
{
    std::size_t end = 0;
    for (; end < text.size() && count > 0; --count) {
        ++end;
        while (end < text.size() && IsContinuationByte(text[end]))
            ++end;
    }
    return text.substr(0, end);
}

std::string DisplayText(std::string_view text)
{
    std::string shown;
    while (!text.empty()) {
        const std::size_t length = CharacterLength(text);
        if (length == 0)
            AppendWindows1252(shown, text.front());
        else
            shown += text.substr(0, length);
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return shown;
}

std::vector<std::string_view> SplitLines(std::string_view text)
{
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end);
        if (text.starts_with("\r\n"))
            text.remove_prefix(2);
        else if (!text.empty())
            text.remove_prefix(1);
    }
    return lines;
}

} // namespace murala
