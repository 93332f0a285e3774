// The INI reader and writer beside the functions whose rules they follow.
#include "../uProfileText.h"
#include "uIniFile.h"
#include "uTempFolder.h"

#include <windows.h>

using namespace murala;

namespace
{

std::string ProfileString(const std::string& path, const char* section, const std::string& key)
{
    char value[1000];
    GetPrivateProfileStringA(section, key.c_str(), "none", value, sizeof value, path.c_str());
    return value;
}

} // namespace

TEST(IniFileBesideTheSystem, TheSystemReadsTheSameValues)
{
    const TTempFolder folder;
    const std::string path = folder.Write("Test.ini", ProfileText);
    for (const auto& [key, value] : ProfileValues)
        EXPECT_EQ(ProfileString(path, "MAIN", key), value) << key;
    EXPECT_EQ(ProfileString(path, "Other]x", "Key"), "1");
    // It lists the lines without "=", too.
    char lines[5000];
    const char* end = lines + GetPrivateProfileSectionA("Main", lines, sizeof lines, path.c_str());
    EXPECT_EQ(std::count<const char*>(lines, end, '\0'), 13);
}

TEST(IniFileBesideTheSystem, EachReadsWhatTheOtherWrote)
{
    const TTempFolder folder;
    const std::string path = folder.File("Test.ini");
    const std::string values[] = {"", "1", "two words", "\" a \"", "a=b", "'", "\"\"a\"\""};
    const auto keyOf = [](const std::string& value) { return "key" + value.substr(0, 1); };
    for (const std::string& value : values)
        WritePrivateProfileStringA("Theirs", keyOf(value).c_str(), value.c_str(), path.c_str());
    WritePrivateProfileStringA(nullptr, nullptr, nullptr, path.c_str());
    TIniFile file = TIniFile::Load(path);
    for (const std::string& value : values)
        file.Write("Ours", keyOf(value), value);
    file.Save(path);
    EXPECT_EQ(file.ReadSection("Ours").size(), 6U);
    EXPECT_EQ(file.ReadSection("Ours"), file.ReadSection("Theirs"));
    for (const auto& [key, value] : file.ReadSection("Theirs"))
        EXPECT_EQ(ProfileString(path, "Ours", key), value);
}
