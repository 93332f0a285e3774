// The INI reader and writer beside the functions whose rules they follow.
#include "uIniFile.h"

#include "uSafeFile.h"
#include "uTempFolder.h"
#include "uText.h"

#include <windows.h>

using namespace murala;

namespace
{

constexpr const char* Missing = "(missing)";

std::string ProfileString(const std::string& path, const char* section, const char* key)
{
    char value[1000];
    GetPrivateProfileStringA(section, key, Missing, value, sizeof value, path.c_str());
    return value;
}

std::string_view WithoutQuotes(std::string_view value)
{
    const bool quoted = value.size() > 1 && value.front() == value.back() &&
                        (value.front() == '"' || value.front() == '\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

// The key=value lines that the system lists. It leaves the quotes on here, which it strips from a
// single value; ours strips them in both cases.
TIniPairs ProfileSection(const std::string& path, const char* section)
{
    char lines[5000];
    const DWORD size = GetPrivateProfileSectionA(section, lines, sizeof lines, path.c_str());
    TIniPairs pairs;
    for (std::string_view rest(lines, size); !rest.empty();) {
        const std::string_view line = rest.substr(0, rest.find('\0'));
        if (const auto equals = line.find('='); equals != std::string_view::npos)
            pairs.emplace_back(line.substr(0, equals), WithoutQuotes(line.substr(equals + 1)));
        rest.remove_prefix(line.size() + 1);
    }
    return pairs;
}

const char* const Texts[] = {
    "[Main]\r\nPlain=two words\r\n Spaced = x y \t\r\nDouble=\" a \"\r\nSingle=' a '\r\n",
    "[Main]\r\nMixed='a\"\r\nLone=\"\r\nNested=\"\"a\"\"\r\nEquals=a=b\r\nEmpty=\r\nHalf=\"a\r\n",
    "[Main]\r\n;Comment=1\r\n# Hash=2\r\nKey=1 ; behind\r\nno equals\r\nKey=2\r\n\r\nLast=3\r\n",
    "stray=1\r\n[Other]\r\nKey=other\r\n[main] "
    "behind\r\nKEY=first\r\n[Main]\r\nKey=2\r\nOnly=3\r\n",
    "  [Main]  \r\n_=\" \"\r\n()=(blank)\r\n1024x768=(blank)\r\n%20=\" \"\r\n\"a%3Db\"=\"x\"\r\n",
    "[Main\r\nKey=1\r\n[Main]x]\r\nKey=2\r\n[Main]\r\nKey=3\r\n",
};
const char* const Keys[] = {"Plain",  "Spaced", "Double", "Single",  "Mixed",  "Lone", "Nested",
                            "Equals", "Empty",  "Half",   "Comment", "# Hash", "Key",  "no equals",
                            "Last",   "stray",  "Only",   "_",       "()",     "%20",  "\"a%3Db\""};

} // namespace

TEST(IniFileBesideTheSystem, ReadsTheSameValues)
{
    const TTempFolder folder;
    int number = 0;
    for (const char* text : Texts) {
        // A name each, for the system may still hold the last file.
        const std::string path = folder.File("Test" + std::to_string(++number) + ".ini");
        ReplaceWholeFile(path, text, TFlush::ToDisk);
        const TIniFile file = TIniFile::Load(path);
        for (const char* section : {"Main", "Other"}) {
            for (const char* key : Keys)
                EXPECT_EQ(file.ReadText(section, key, Missing), ProfileString(path, section, key))
                    << text << section << ' ' << key;
            EXPECT_EQ(file.ReadSection(section), ProfileSection(path, section)) << text << section;
        }
    }
}

TEST(IniFileBesideTheSystem, EachReadsWhatTheOtherWrote)
{
    const TTempFolder folder;
    const std::string path = folder.File("Test.ini");
    const char* const values[] = {"", "1", "two words", "\" a \"", "a=b", "'", "\"\"a\"\""};
    TIniFile file;
    for (const char* value : values)
        file.Write("Ours", std::string("key") + value[0], value);
    file.Save(path);
    for (const char* value : values)
        WritePrivateProfileStringA("Theirs", (std::string("key") + value[0]).c_str(), value,
                                   path.c_str());
    WritePrivateProfileStringA(nullptr, nullptr, nullptr, path.c_str());
    file = TIniFile::Load(path);
    EXPECT_EQ(file.ReadSection("Ours"), file.ReadSection("Theirs"));
    EXPECT_EQ(ProfileSection(path, "Ours"), ProfileSection(path, "Theirs"));
    EXPECT_EQ(file.ReadSection("Ours").size(), 6U);
}
