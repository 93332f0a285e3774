// An INI file with the reading rules of the Windows private-profile functions, the same in both
// homes: section and key names without regard to case, blanks around names and values trimmed, one
// pair of enclosing quotes (" or ') stripped from a value when it is read; the first of several equal
// sections or keys counts. Comments, unknown keys, blank lines and the order of all lines survive.
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

class TIniFile
{
public:
    // A missing file reads as an empty one. Throws EFileError when a file is there and cannot be read.
    static TIniFile Load(const std::string& path);
    static TIniFile FromText(std::string_view text);

    bool HasSection(std::string_view section) const;
    std::optional<std::string> Read(std::string_view section, std::string_view key) const;
    // The section's key=value lines in file order.
    std::vector<std::pair<std::string, std::string>> ReadSection(std::string_view section) const;

    // A value of the wrong form gives the default.
    std::string ReadText(std::string_view section, std::string_view key,
                         std::string_view otherwise) const;
    std::int32_t ReadInteger(std::string_view section, std::string_view key,
                             std::int32_t otherwise) const;
    bool ReadBoolean(std::string_view section, std::string_view key, bool otherwise) const;
    TDateTime ReadDateTime(std::string_view section, std::string_view key, TDateTime otherwise) const;
    TDateTime ReadTime(std::string_view section, std::string_view key, TDateTime otherwise) const;

    // Changes the key's line in its place; a new key goes to the end of its section, a new section to
    // the end of the file. The value is written as it is: quote it where blanks at its ends matter.
    void Write(std::string_view section, std::string_view key, std::string_view value);
    // Replaces all key=value lines of the section (its comments stay).
    void WriteSection(std::string_view section,
                      const std::vector<std::pair<std::string, std::string>>& pairs);

    std::string ToText() const;
    // Replaces the file once, safely, and only when something was changed since loading. Throws
    // EFileError.
    void Save(const std::string& path);

private:
    struct TLine {
        std::string Text;
        std::string Section; // of a header
        std::string Key;     // of a key=value line
        std::string Value;
        bool IsHeader = false;
    };
    static TLine ParseLine(std::string_view text);
    // Lines [first, last) below the section's header; none when there is no such section.
    std::optional<std::pair<std::size_t, std::size_t>> SectionRange(std::string_view section) const;
    std::pair<std::size_t, std::size_t> EnsureSection(std::string_view section);

    std::vector<TLine> m_lines;
    bool m_changed = false;
};

} // namespace murala
