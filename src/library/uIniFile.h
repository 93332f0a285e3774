// An INI file with the reading rules of the Windows private-profile functions, the same in both
// homes: section and key names without regard to case, blanks around names and values trimmed, one
// pair of enclosing quotes (" or ') stripped from a value when it is read; the first of several
// equal sections or keys counts. Comments, unknown keys, blank lines and the order of all lines
// survive.
#pragma once

#include "uDateTime.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace murala
{

// Keys and values.
using TIniPairs = std::vector<std::pair<std::string, std::string>>;

// A value to write: as it is, but in quotes where the reader would take something off its ends.
std::string QuotedIniText(const std::string& value);

class TIniFile
{
public:
    // A missing file reads as an empty one. Throws EFileError when a file is there and cannot be
    // read.
    static TIniFile Load(const std::string& path);
    // UTF-16 with its mark goes on as UTF-8 with its mark.
    static TIniFile FromText(std::string_view content);

    bool HasSection(std::string_view section) const;
    // Their names in file order.
    std::vector<std::string> Sections() const;
    std::optional<std::string> Read(std::string_view section, std::string_view key) const;
    // The section's key=value lines in file order, quotes stripped from the values.
    TIniPairs ReadSection(std::string_view section) const;

    // A value of the wrong form gives the default.
    std::string ReadText(std::string_view section, std::string_view key,
                         std::string_view otherwise) const;
    std::int32_t ReadInteger(std::string_view section, std::string_view key,
                             std::int32_t otherwise) const;
    bool ReadBoolean(std::string_view section, std::string_view key, bool otherwise) const;
    TDateTime ReadDateTime(std::string_view section, std::string_view key,
                           TDateTime otherwise) const;
    TDateTime ReadTime(std::string_view section, std::string_view key, TDateTime otherwise) const;

    // Writing: a key is one line, without "=", and begins with neither ";" nor "[". A value is
    // written as it is (quote it where blanks or quotes at its ends matter), but line breaks in it
    // become blanks.

    // Changes the key's line in its place; a new key goes to the end of its section, a new section
    // to the end of the file.
    void Write(std::string_view section, std::string_view key, std::string_view value);
    // Replaces all key=value lines of the section; its other lines stay where they are.
    void WriteSection(std::string_view section, const TIniPairs& pairs);

    std::string ToText() const;
    // Replaces the file once, safely, and only when something was changed since loading. Throws
    // EFileError.
    void Save(const std::string& path);

private:
    struct TLine {
        std::string Text;
        std::string Name; // of the section or key, trimmed
        std::string Value;
        enum { Other, Header, Pair } Kind = Other;
    };
    // Lines [First, End) below a section's header.
    struct TRange {
        std::size_t First, End;
    };
    static TLine ParseLine(std::string_view text);
    static TLine MakePair(std::string_view key, std::string_view value);
    std::optional<TRange> FindSection(std::string_view section) const;
    TRange EnsureSection(std::string_view section);
    // Where the section's key stands, or range.End.
    std::size_t FindKey(TRange range, std::string_view key) const;
    // Behind the last line of the range that is not blank.
    std::size_t EndOfText(TRange range) const;

    std::vector<TLine> m_lines;
    bool m_byteOrderMark = false;
    std::string m_storedText; // what ToText gave when the file was loaded or saved
};

} // namespace murala
