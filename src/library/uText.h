// Plain helpers for text. Text is UTF-8 in both homes.
#pragma once

#include <cstdint>
#include <cstdio>
#include <initializer_list>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace murala
{

// Text that does not stand for what it should; `what()` says what was to be read, and why it cannot
// be.
class EConvertError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// The whole text as a decimal integer with an optional sign; nothing else may stand in it. Blanks
// in front are allowed. Empty when it is no integer or does not fit into 32 bits.
std::optional<std::int32_t> ParseInteger(std::string_view text);

// Without the blanks and control characters (U+0000 to U+0020) at both ends.
std::string_view Trim(std::string_view text);

// Only the letters a to z and A to Z are changed.
std::string UpperAscii(std::string_view text);
bool SameTextAscii(std::string_view a, std::string_view b);

// Every occurrence from left to right; inserted text is not looked at again. An empty `find`
// changes nothing.
std::string ReplaceAll(std::string_view text, std::string_view find, std::string_view replacement);

// Replaces each "%s" and "%d" of the format, in order, by the next value; "%%" is a percent sign.
std::string FormatText(std::string_view format, std::initializer_list<std::string_view> values);

// As the C library's printf, for numbers: what is longer than 63 bytes is cut.
template<class... TValues>
std::string PrintShort(const char* format, TValues... values)
{
    char text[64];
    std::snprintf(text, sizeof text, format, values...);
    return text;
}

// The first `count` characters (code points), never cut inside one; broken bytes count one each.
std::string_view FirstCharacters(std::string_view text, std::size_t count);
// At most `count` characters, with an ellipsis for what is left out in the middle.
std::string WithoutMiddle(std::string_view text, std::size_t count);

// Bytes that are no UTF-8 taken as Windows-1252, as files from before have them: for showing text
// whose bytes have to stay what they are.
std::string DisplayText(std::string_view text);

inline constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
// A file's content that is UTF-16, with its mark, as UTF-8 with its mark; any other as it is.
std::string DecodeText(std::string content);

// With a blank for each character of a line end and for each null: a title that was pasted, say,
// has to stay on its line of the list.
std::string OneLine(std::string_view text);

// Split at CR LF, LF or CR. A line end at the very end opens no further line.
std::vector<std::string_view> SplitLines(std::string_view text);

} // namespace murala
