#include "uIniFile.h"

#include "uPath.h"
#include "uSafeFile.h"
#include "uText.h"

#include <algorithm>

namespace murala
{

namespace
{

constexpr std::string_view LineEnd = "\r\n";

std::string_view StripQuotes(std::string_view value)
{
    const bool quoted = value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
                        value.front() == value.back();
    return quoted ? value.substr(1, value.size() - 2) : value;
}

} // namespace

std::string QuotedIniText(const std::string& value)
{
    const bool quotes = value.starts_with('"') || value.starts_with('\'') || Trim(value) != value;
    return quotes ? '"' + value + '"' : value;
}

TIniFile TIniFile::Load(const std::string& path)
{
    return FromText(FileExists(path) ? ReadWholeFile(path) : std::string());
}

TIniFile TIniFile::FromText(std::string_view content)
{
    const std::string decoded = DecodeText(std::string(content));
    std::string_view text = decoded;
    TIniFile file;
    file.m_byteOrderMark = text.starts_with(ByteOrderMark);
    if (file.m_byteOrderMark)
        text.remove_prefix(ByteOrderMark.size());
    for (std::string_view line : SplitLines(text))
        file.m_lines.push_back(ParseLine(line));
    file.m_storedText = file.ToText();
    return file;
}

TIniFile::TLine TIniFile::ParseLine(std::string_view text)
{
    const std::string_view line = Trim(text);
    TLine result{std::string(text), {}, {}, TLine::Other};
    const std::size_t close = line.rfind(']');
    const std::size_t equals = line.find('=');
    if (line.starts_with('[') && close != std::string_view::npos) {
        result.Kind = TLine::Header;
        result.Name = Trim(line.substr(1, close - 1));
    } else if (!line.starts_with(';') && equals != std::string_view::npos) {
        result.Kind = TLine::Pair;
        result.Name = Trim(line.substr(0, equals));
        result.Value = StripQuotes(Trim(line.substr(equals + 1)));
    }
    return result;
}

TIniFile::TLine TIniFile::MakePair(std::string_view key, std::string_view value)
{
    return ParseLine(OneLine(key) + "=" + OneLine(value));
}

std::optional<TIniFile::TRange> TIniFile::FindSection(std::string_view section) const
{
    const auto isHeader = [](const TLine& line) { return line.Kind == TLine::Header; };
    const auto header = std::find_if(m_lines.begin(), m_lines.end(), [&](const TLine& line) {
        return isHeader(line) && SameTextAscii(line.Name, Trim(section));
    });
    if (header == m_lines.end())
        return std::nullopt;
    const auto next = std::find_if(header + 1, m_lines.end(), isHeader);
    return TRange{static_cast<std::size_t>(header + 1 - m_lines.begin()),
                  static_cast<std::size_t>(next - m_lines.begin())};
}

TIniFile::TRange TIniFile::EnsureSection(std::string_view section)
{
    if (const auto range = FindSection(section))
        return *range;
    m_lines.push_back(ParseLine(FormatText("[%s]", {OneLine(section)})));
    return {m_lines.size(), m_lines.size()};
}

std::size_t TIniFile::FindKey(TRange range, std::string_view key) const
{
    std::size_t at = range.First;
    while (at < range.End &&
           !(m_lines[at].Kind == TLine::Pair && SameTextAscii(m_lines[at].Name, Trim(key))))
        ++at;
    return at;
}

std::size_t TIniFile::EndOfText(TRange range) const
{
    while (range.End > range.First && Trim(m_lines[range.End - 1].Text).empty())
        --range.End;
    return range.End;
}

bool TIniFile::HasSection(std::string_view section) const
{
    return FindSection(section).has_value();
}

std::vector<std::string> TIniFile::Sections() const
{
    std::vector<std::string> names;
    for (const TLine& line : m_lines)
        if (line.Kind == TLine::Header)
            names.push_back(line.Name);
    return names;
}

std::optional<std::string> TIniFile::Read(std::string_view section, std::string_view key) const
{
    const auto range = FindSection(section);
    const std::size_t at = range ? FindKey(*range, key) : 0;
    if (!range || at == range->End)
        return std::nullopt;
    return m_lines[at].Value;
}

TIniPairs TIniFile::ReadSection(std::string_view section) const
{
    TIniPairs pairs;
    const TRange range = FindSection(section).value_or(TRange{0, 0});
    for (std::size_t at = range.First; at < range.End; ++at)
        if (m_lines[at].Kind == TLine::Pair)
            pairs.emplace_back(m_lines[at].Name, m_lines[at].Value);
    return pairs;
}

std::string TIniFile::ReadText(std::string_view section, std::string_view key,
                               std::string_view otherwise) const
{
    return Read(section, key).value_or(std::string(otherwise));
}

std::int32_t TIniFile::ReadInteger(std::string_view section, std::string_view key,
                                   std::int32_t otherwise) const
{
    return ParseInteger(ReadText(section, key, "")).value_or(otherwise);
}

bool TIniFile::ReadBoolean(std::string_view section, std::string_view key, bool otherwise) const
{
    return ReadInteger(section, key, otherwise ? 1 : 0) != 0;
}

TDateTime TIniFile::ReadDateTime(std::string_view section, std::string_view key,
                                 TDateTime otherwise) const
{
    return TextToDateTime(ReadText(section, key, "")).value_or(otherwise);
}

TDateTime TIniFile::ReadTime(std::string_view section, std::string_view key,
                             TDateTime otherwise) const
{
    return TextToTime(ReadText(section, key, "")).value_or(otherwise);
}

void TIniFile::Write(std::string_view section, std::string_view key, std::string_view value)
{
    const TRange range = EnsureSection(section);
    const std::size_t at = FindKey(range, key);
    if (at < range.End)
        m_lines[at] = MakePair(key, value);
    else
        m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(EndOfText(range)),
                       MakePair(key, value));
}

void TIniFile::WriteSection(std::string_view section, const TIniPairs& pairs)
{
    const TRange range = EnsureSection(section);
    const auto first = m_lines.begin() + static_cast<std::ptrdiff_t>(range.First);
    const auto end = m_lines.begin() + static_cast<std::ptrdiff_t>(EndOfText(range));
    std::vector<TLine> lines;
    auto next = pairs.begin();
    const auto takeNext = [&] {
        lines.push_back(MakePair(next->first, next->second));
        ++next;
    };
    for (auto line = first; line != end; ++line)
        if (line->Kind != TLine::Pair)
            lines.push_back(*line);
        else if (next != pairs.end())
            takeNext();
    while (next != pairs.end())
        takeNext();
    m_lines.insert(m_lines.erase(first, end), lines.begin(), lines.end());
}

std::string TIniFile::ToText() const
{
    std::string text(m_byteOrderMark ? ByteOrderMark : std::string_view());
    for (const TLine& line : m_lines)
        text.append(line.Text).append(LineEnd);
    return text;
}

void TIniFile::Save(const std::string& path)
{
    std::string text = ToText();
    if (text == m_storedText)
        return;
    ReplaceWholeFile(path, text, TFlush::ToDisk);
    m_storedText = std::move(text);
}

} // namespace murala
