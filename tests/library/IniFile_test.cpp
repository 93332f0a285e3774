#include "uIniFile.h"

#include "uProfileText.h"
#include "uTempFolder.h"

using namespace murala;

TEST(IniFile, ReadsAsThePrivateProfileFunctionsDo)
{
    const TIniFile file = TIniFile::FromText(ProfileText);
    for (const auto& [key, value] : ProfileValues)
        EXPECT_EQ(file.ReadText("MAIN", key, "none"), value) << key;
    EXPECT_EQ(file.ReadSection("main").size(), 12U);
    EXPECT_EQ(file.ReadText("other]x", "key", "none"), "1");
    EXPECT_FALSE(file.HasSection("open"));
}

TEST(IniFile, GivesTheDefaultForAValueOfTheWrongForm)
{
    const TIniFile file = TIniFile::FromText("[s]\nInteger='-7'\nWord=x\n");
    EXPECT_EQ(file.ReadInteger("s", "Integer", 1), -7);
    for (const char* key : {"Word", "missing"}) {
        EXPECT_EQ(file.ReadInteger("s", key, 3), 3) << key;
        EXPECT_TRUE(file.ReadBoolean("s", key, true)) << key;
        EXPECT_EQ(file.ReadTime("s", key, 0.5), 0.5) << key;
        EXPECT_EQ(file.ReadDateTime("s", key, 2.0), 2.0) << key;
    }
}

TEST(IniFile, ChangesOnlyTheLinesItWrites)
{
    TIniFile file = TIniFile::FromText("\xEF\xBB\xBF[A]\n one = 1 \n;two=2\nODD LINE\n\n[B]\nx=y");
    file.Write("a", "One", "11");
    file.Write("A", "two", "22");
    file.Write("B", "z", " \"kept\" ");
    file.Write("C", "new", "a\r\n[A]\r\none=13");
    const std::string head = "\xEF\xBB\xBF[A]\r\n";
    const std::string others = "\r\n[B]\r\nx=y\r\nz= \"kept\" \r\n[C]\r\nnew=a  [A]  one=13\r\n";
    EXPECT_EQ(file.ToText(), head + "One=11\r\n;two=2\r\nODD LINE\r\ntwo=22\r\n" + others);
    file.WriteSection("A", {{"b", "3"}, {"c", "4"}, {"c", "5"}});
    EXPECT_EQ(file.ToText(), head + "b=3\r\n;two=2\r\nODD LINE\r\nc=4\r\nc=5\r\n" + others);
    file.WriteSection("A", {});
    file.WriteSection("New", {});
    EXPECT_EQ(file.ToText(), head + ";two=2\r\nODD LINE\r\n" + others + "[New]\r\n");
}

TEST(IniFile, OfTwoBytesACharacterIsReadAndGoesOnAsUtf8)
{
    const TTempFolder folder;
    const std::string path =
        folder.Write("Murala.ini", {"\xFE\xFF\0[\0A\0]\0\n\0a\0=\0\xE4\0\n", 18});
    TIniFile file = TIniFile::Load(path);
    EXPECT_EQ(file.ReadText("A", "a", ""), "\xC3\xA4");
    file.Write("A", "b", "2");
    file.Save(path);
    EXPECT_EQ(ReadWholeFile(path), "\xEF\xBB\xBF[A]\r\na=\xC3\xA4\r\nb=2\r\n");
}

TEST(IniFile, IsWrittenOnlyWhenSomethingWasChanged)
{
    const TTempFolder folder;
    const std::string path = folder.File("Murala.ini");
    TIniFile::Load(path).Save(path);
    EXPECT_FALSE(FileExists(path));
    TIniFile file = TIniFile::Load(folder.Write("Murala.ini", "[A]\na=1\n"));
    file.Write("A", "b", "2");
    file.Save(path);
    EXPECT_EQ(ReadWholeFile(path), "[A]\r\na=1\r\nb=2\r\n");
    DeleteFileIfPresent(path);
    file.Write("A", "b", "2");
    file.Save(path);
    EXPECT_FALSE(FileExists(path));
}
