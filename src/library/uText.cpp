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

// The forms of a character of several bytes: the first byte, and the second.
struct TSequence {
    unsigned char First, Last, SecondFirst, SecondLast;
    std::size_t Length;
};
constexpr TSequence Sequences[] = {
    {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3}, {0xE1, 0xEC, 0x80, 0xBF, 3},
    {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3}, {0xF0, 0xF0, 0x90, 0xBF, 4},
    {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
};

// How many bytes the character has that the text begins with, 0 when it is none.
std::size_t CharacterLength(std::string_view text)
{
    const auto first = static_cast<unsigned char>(text[0]);
    if (first < 0x80)
        return 1;
    const auto second = static_cast<unsigned char>(text.size() > 1 ? text[1] : 0);
    for (const TSequence& form : Sequences)
        if (first >= form.First && first <= form.Last && second >= form.SecondFirst &&
            second <= form.SecondLast && text.size() >= form.Length &&
            std::ranges::all_of(text.substr(1, form.Length - 1), IsContinuationByte))
            return form.Length;
    return 0;
}

void AppendCharacter(std::string& text, std::uint32_t code)
{
    const auto tail = [&](unsigned shift) {
        text += static_cast<char>(0x80U | (code >> shift & 0x3FU));
    };
    if (code < 0x80) {
        text += static_cast<char>(code);
    } else if (code < 0x800) {
        text += static_cast<char>(0xC0U | code >> 6U);
        tail(0);
    } else if (code < 0x10000) {
        text += static_cast<char>(0xE0U | code >> 12U);
        tail(6);
        tail(0);
    } else {
        text += static_cast<char>(0xF0U | code >> 18U);
        tail(12);
        tail(6);
        tail(0);
    }
}

// Windows-1252 from 0x80 to 0x9F; what is not in use there stays as it is.
constexpr std::uint16_t Windows1252[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

constexpr std::uint32_t ReplacementCharacter = 0xFFFD;

bool IsHighSurrogate(std::uint32_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}
bool IsLowSurrogate(std::uint32_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
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

std::string WithoutMiddle(std::string_view text, std::size_t count)
{
    if (FirstCharacters(text, count).size() == text.size())
        return std::string(text);
    std::size_t begin = text.size();
    for (std::size_t rest = count / 2; rest > 0; --rest) {
        --begin;
        while (begin > 0 && IsContinuationByte(text[begin]))
            --begin;
    }
    return std::string(FirstCharacters(text, count - count / 2 - 1)) + "\xE2\x80\xA6" +
           std::string(text.substr(begin));
}

std::string DisplayText(std::string_view text)
{
    std::string result;
    while (!text.empty()) {
        const std::size_t length = CharacterLength(text);
        const auto byte = static_cast<unsigned char>(text[0]);
        if (length > 0)
            result += text.substr(0, length);
        else
            AppendCharacter(result, byte < 0xA0 ? Windows1252[byte - 0x80] : byte);
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return result;
}

std::string DecodeText(std::string content)
{
    const bool isLittle = content.starts_with("\xFF\xFE");
    if (!isLittle && !content.starts_with("\xFE\xFF"))
        return content;
    const auto unit = [&](std::size_t at) -> std::uint32_t {
        if (at + 1 >= content.size())
            return ReplacementCharacter; // half a character at the end
        const auto first = static_cast<unsigned char>(content[at]);
        const auto second = static_cast<unsigned char>(content[at + 1]);
        return isLittle ? first | second << 8U : first << 8U | second;
    };
    std::string text;
    for (std::size_t at = 0; at < content.size(); at += 2) {
        std::uint32_t code = unit(at);
        if (IsHighSurrogate(code) && IsLowSurrogate(unit(at + 2))) {
            code = 0x10000 + ((code - 0xD800) << 10U) + (unit(at + 2) - 0xDC00);
            at += 2;
        } else if (IsHighSurrogate(code) || IsLowSurrogate(code)) {
            code = ReplacementCharacter;
        }
        AppendCharacter(text, code);
    }
    return text;
}

std::string OneLine(std::string_view text)
{
    std::string line(text);
    std::ranges::replace_if(
        line, [](char c) { return c == '\r' || c == '\n' || c == '\0'; }, ' ');
    return line;
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
