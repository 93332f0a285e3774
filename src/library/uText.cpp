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
