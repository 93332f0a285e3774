#include "uConvertList.h"

#include "uText.h"

#include <algorithm>
#include <charconv>

namespace murala
{

namespace
{

constexpr std::string_view Blank = "(blank)";

std::string Quoted(std::string_view text)
{
    return '"' + std::string(text) + '"';
}

bool IsQuoted(std::string_view text)
{
    return text.size() >= 2 && text.front() == '"' && text.back() == '"';
}

bool IsControl(char c)
{
    return static_cast<unsigned char>(c) < ' ';
}

bool NeedsQuotes(std::string_view find)
{
    return Trim(find) != find || find.empty() ||
           std::string_view(";[\"").find(find.front()) != std::string_view::npos ||
           find.find('=') != std::string_view::npos || std::ranges::any_of(find, IsControl);
}

std::string EncodeFind(std::string_view find)
{
    if (!NeedsQuotes(find))
        return std::string(find);
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string key;
    for (char c : find) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '=' || c == '%' || IsControl(c))
            key.append({'%', digits[byte >> 4U], digits[byte & 15U]});
        else
            key += c;
    }
    return Quoted(key);
}

std::string DecodeFind(std::string_view key)
{
    if (!IsQuoted(key))
        return std::string(key);
    key = key.substr(1, key.size() - 2);
    std::string find;
    for (std::size_t at = 0; at < key.size(); ++at) {
        unsigned char byte = 0;
        const char* const digits = key.data() + at + 1;
        if (key[at] == '%' && at + 2 < key.size() &&
            std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
            find += static_cast<char>(byte);
            at += 2;
        } else {
            find += key[at];
        }
    }
    return find;
}

} // namespace

TIniPairs ConvertListToPairs(const TConvertList& list)
{
    TIniPairs pairs;
    for (const auto& [find, replacement] : list)
        pairs.emplace_back(EncodeFind(find),
                           replacement.empty() ? std::string(Blank) : Quoted(replacement));
    return pairs;
}

TConvertList PairsToConvertList(const TIniPairs& pairs)
{
    TConvertList list;
    for (const auto& [key, value] : pairs)
        list.emplace_back(DecodeFind(key), value == Blank ? std::string() : value);
    return list;
}

} // namespace murala
