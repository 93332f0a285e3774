#include "uConvertList.h"
#include "uRequire.h"
#include "uSettings.h"
#include "uText.h"

#include <algorithm>
#include <cstdint>

using namespace murala;

namespace
{

constexpr std::string_view Section = "Main";
constexpr std::string_view Key = "Key";

TIniFile Reread(const TIniFile& file)
{
    return TIniFile::FromText(file.ToText());
}

// The section's pairs but those of the key that is written.
TIniPairs OtherPairs(const TIniFile& file)
{
    TIniPairs pairs = file.ReadSection(Section);
    std::erase_if(pairs, [](const auto& pair) { return SameTextAscii(pair.first, Key); });
    return pairs;
}

void CheckWriting(TIniFile file, std::string_view value)
{
    const TIniPairs others = OtherPairs(file);
    file.Write(Section, Key, '"' + std::string(value) + '"');
    const auto read = Reread(file).Read(Section, Key);
    Require(read.has_value() && read->size() == value.size(), "a quoted value is read whole");
    Require(value.find_first_of(std::string_view("\r\n\0", 3)) != std::string_view::npos ||
                *read == value,
            "a quoted value is read as it was written");
    Require(OtherPairs(Reread(file)) == others, "writing a key leaves the others");
}

// The lines of the text, two by two, as find texts and replacements.
void CheckConvertList(TIniFile file, std::string_view text)
{
    TConvertList list;
    const auto lines = SplitLines(text);
    for (std::size_t i = 0; i + 1 < lines.size(); i += 2)
        list.emplace_back(lines[i], ReplaceAll(lines[i + 1], std::string_view("\0", 1), " "));
    std::erase_if(list, [](const auto& pair) { return pair.second == "(blank)"; });
    file.WriteSection("ConvertList", ConvertListToPairs(list));
    Require(PairsToConvertList(Reread(file).ReadSection("ConvertList")) == list,
            "a convert list is read as it was written");
}

void CheckSettings(const TIniFile& file)
{
    const TMuSettings settings = LoadSettings(file, {});
    TIniFile saved = file;
    SaveSettings(saved, settings, {}, AllSaveFlags);
    TIniFile again = Reread(saved);
    SaveSettings(again, LoadSettings(again, {}), {}, AllSaveFlags);
    Require(again.ToText() == saved.ToText(), "settings are read as they were saved");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const TIniFile file = TIniFile::FromText(text);
    Require(Reread(file).ToText() == file.ToText(), "a written file is read as it was");
    Require(Reread(file).ReadSection(Section) == file.ReadSection(Section),
            "a written file has the same pairs");
    CheckWriting(file, text.substr(0, 20));
    CheckConvertList(file, text);
    CheckSettings(file);
    return 0;
}
