#include "uIniFile.h"

#include "uSafeFile.h"
#include "uTempFolder.h"

using namespace murala;

TEST(IniFile, ReadsAsThePrivateProfileFunctionsDo)
{
    const TIniFile file = TIniFile::FromText("stray=0\r\n"
                                             "; [Main]\n"
                                             "  [ mAIN ] behind\r\n"
                                             " Plain = two words \t\r"
                                             ";Comment=1\n"
                                             "Double=\" x \"\n"
                                             "Single=' x '\n"
                                             "Mixed='x\"\n"
                                             "Lone=\"\n"
                                             "Nested=\"\"x\"\"\n"
                                             "Equals=a=b\n"
                                             "Empty=\n"
                                             "no equals sign\n"
                                             "plain=second\n"
                                             "[Other]\nKey=1\n"
                                             "[Main]\nOnlyInSecond=1\n"
                                             "[open\nKey=2\n");
    const struct {
        const char *Section, *Key, *Value; // null: missing
    } cases[] = {
        {"Main", "plain", "two words"}, {"MAIN", " PLAIN ", "two words"},
        {"Main", "Double", " x "},      {"Main", "Single", " x "},
        {"Main", "Mixed", "'x\""},      {"Main", "Lone", "\""},
        {"Main", "Nested", "\"x\""},    {"Main", "Equals", "a=b"},
        {"Main", "Empty", ""},          {"Main", "Comment", nullptr},
        {"Main", ";Comment", nullptr},  {"Main", "no equals sign", nullptr},
        {"Main", "stray", nullptr},     {"Main", "OnlyInSecond", nullptr},
        {"Other", "Key", "1"},          {"open", "Key", nullptr},
    };
    for (const auto& c : cases)
        EXPECT_EQ(file.Read(c.Section, c.Key),
                  c.Value ? std::optional<std::string>(c.Value) : std::nullopt)
            << c.Section << ' ' << c.Key;
    EXPECT_EQ(file.ReadSection("main").size(), 9U);
    EXPECT_TRUE(file.HasSection("OTHER"));
    EXPECT_FALSE(file.HasSection("open"));
}

TEST(IniFile, GivesTheDefaultForAValueOfTheWrongForm)
{
    const TIniFile file =
        TIniFile::FromText("[s]\nInteger=-7\nQuoted=\"7\"\nWord=seven\nLong=5000000000\n"
                           "Date=2026-03-07 06:00:00\nTime=18:00\nEmpty=\n");
    EXPECT_EQ(file.ReadInteger("s", "Integer", 1), -7);
    EXPECT_EQ(file.ReadInteger("s", "Quoted", 1), 7);
    EXPECT_TRUE(file.ReadBoolean("s", "Integer", false));
    EXPECT_EQ(file.ReadTime("s", "Time", 0.0), 0.75);
    EXPECT_EQ(TimeOf(file.ReadDateTime("s", "Date", 0.0)), 0.25);
    for (const char* key : {"Word", "Long", "Date", "Empty", "missing"}) {
        EXPECT_EQ(file.ReadInteger("s", key, 3), 3) << key;
        EXPECT_TRUE(file.ReadBoolean("s", key, true)) << key;
        EXPECT_EQ(file.ReadTime("s", key, 0.5), 0.5) << key;
    }
    EXPECT_EQ(file.ReadDateTime("s", "Time", 2.0), 2.0);
    EXPECT_EQ(file.ReadText("s", "Empty", "x"), "");
}

TEST(IniFile, ChangesOnlyTheLinesItWrites)
{
    TIniFile file = TIniFile::FromText("; head\n\n[A]\n one = 1 \n;two=2\nODD LINE\n\n[B]\nx=y");
    file.Write("a", "One", "11");
    file.Write("A", "two", "22");
    file.Write("B", "z", " \"kept\" ");
    file.Write("C", "new", "a\r\n[A]\r\none=13");
    EXPECT_EQ(file.ToText(), "; head\r\n\r\n[A]\r\nOne=11\r\n;two=2\r\nODD LINE\r\ntwo=22\r\n\r\n"
                             "[B]\r\nx=y\r\nz= \"kept\" \r\n[C]\r\nnew=a  [A]  one=13\r\n");
    EXPECT_EQ(file.Read("A", "one"), "11");
}

TEST(IniFile, ReplacesTheKeysOfASection)
{
    const std::string head = "[A]\r\n; first\r\n";
    TIniFile file = TIniFile::FromText(head + "a=1\n; between\nb=2\n\n[B]\nx=y\n");
    file.WriteSection("A", {{"b", "3"}, {"c", "4"}, {"c", "5"}});
    EXPECT_EQ(file.ToText(), head + "b=3\r\n; between\r\nc=4\r\nc=5\r\n\r\n[B]\r\nx=y\r\n");
    file.WriteSection("A", {});
    EXPECT_EQ(file.ToText(), head + "; between\r\n\r\n[B]\r\nx=y\r\n");
    file.WriteSection("New", {});
    EXPECT_TRUE(file.HasSection("New"));
}

TEST(IniFile, KeepsAByteOrderMark)
{
    TIniFile file = TIniFile::FromText("\xEF\xBB\xBF[A]\na=1\n");
    EXPECT_EQ(file.ReadInteger("A", "a", 0), 1);
    file.Write("A", "a", "2");
    EXPECT_EQ(file.ToText(), "\xEF\xBB\xBF[A]\r\na=2\r\n");
}

TEST(IniFile, IsWrittenOnlyWhenSomethingWasChanged)
{
    const TTempFolder folder;
    const std::string path = folder.File("Murala.ini");
    TIniFile file = TIniFile::Load(path);
    file.Save(path);
    EXPECT_FALSE(FileExists(path));
    ReplaceWholeFile(path, "[A]\na=1\n", TFlush::ToDisk);
    file = TIniFile::Load(path);
    file.Write("A", "a", "1");
    file.Write("A", "b", "2");
    file.Save(path);
    EXPECT_EQ(ReadWholeFile(path), "[A]\r\na=1\r\nb=2\r\n");
    DeleteFileIfPresent(path);
    file.Write("A", "b", "2");
    file.Save(path);
    EXPECT_FALSE(FileExists(path));
}
