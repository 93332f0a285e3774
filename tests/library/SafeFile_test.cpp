#include "uSafeFile.h"

#include "uTempFolder.h"

using namespace murala;

namespace
{

std::string WhyReplacingFails(const std::string& path)
{
    try {
        ReplaceWholeFile(path, "new", TFlush::ToDisk);
    } catch (const EFileError& error) {
        return error.what();
    }
    return {};
}

} // namespace

TEST(SafeFile, ReplacesAndLeavesNothingBeside)
{
    const TTempFolder folder;
    const std::string path = folder.File("L\xC3\xA4nge \xE2\x82\xAC.txt");
    for (const std::string& content : {std::string("old"), std::string("a\0b\r\n\x1A", 6),
                                       std::string(200000, 'x'), std::string()})
        for (TFlush flush : {TFlush::ToDisk, TFlush::ToSystemCache}) {
            ReplaceWholeFile(path, content, flush);
            EXPECT_EQ(ReadWholeFile(path), content);
        }
    EXPECT_EQ(folder.Count(), 1);
}

TEST(SafeFile, KeepsTheOldFileUntilTheNewOneIsCommitted)
{
    const TTempFolder folder;
    const std::string path = folder.File("list");
    ReplaceWholeFile(path, "old", TFlush::ToDisk);
    {
        TFileReplacement file(path, TFlush::ToDisk);
        file.Write("half", 4);
        EXPECT_EQ(ReadWholeFile(path), "old");
    }
    EXPECT_EQ(ReadWholeFile(path), "old");
    EXPECT_EQ(folder.Count(), 1);
}

TEST(SafeFile, TakesOverAHalfWrittenFileOfAKilledRun)
{
    const TTempFolder folder;
    const std::string path = folder.File("list");
    ReplaceWholeFile(path + ".new", "a half-written file that is longer", TFlush::ToDisk);
    ReplaceWholeFile(path, "new", TFlush::ToDisk);
    EXPECT_EQ(ReadWholeFile(path), "new");
    EXPECT_EQ(folder.Count(), 1);
}

TEST(SafeFile, SaysWhatFailedOnWhichFile)
{
    const TTempFolder folder;
    const std::string missing = folder.File("missing");
    EXPECT_THROW(ReadWholeFile(missing), EFileError);
    EXPECT_THROW(ReadWholeFile(folder.Path()), EFileError);
    EXPECT_NE(WhyReplacingFails(missing + "/list").find(missing), std::string::npos);
    EXPECT_NE(WhyReplacingFails(folder.Path()).find("annot replace"), std::string::npos);
    EXPECT_EQ(folder.Count(), 0);
}

TEST(SafeFile, DoesNotReplaceAReadOnlyFile)
{
    const TTempFolder folder;
    const std::string path = folder.File("list");
    ReplaceWholeFile(path, "old", TFlush::ToDisk);
    using std::filesystem::perms;
    std::filesystem::permissions(NativePath(path),
                                 perms::owner_write | perms::group_write | perms::others_write,
                                 std::filesystem::perm_options::remove);
    if (std::FILE* file = std::fopen(path.c_str(), "r+b")) {
        std::fclose(file);
        GTEST_SKIP() << "this user may write everything";
    }
    EXPECT_NE(WhyReplacingFails(path), "");
    EXPECT_EQ(ReadWholeFile(path), "old");
    EXPECT_EQ(folder.Count(), 1);
    std::filesystem::permissions(NativePath(path), perms::owner_write,
                                 std::filesystem::perm_options::add);
}

TEST(SafeFile, KeepsEveryUnreadableFileOnce)
{
    const TTempFolder folder;
    const std::string path = folder.File("list");
    const auto keep = [&](const char* content) {
        ReplaceWholeFile(path, content, TFlush::ToDisk);
        return KeepUnreadableFile(path);
    };
    EXPECT_EQ(keep("first"), path + ".unreadable");
    EXPECT_EQ(keep("second"), path + ".unreadable2");
    EXPECT_EQ(keep("third"), path + ".unreadable3");
    EXPECT_EQ(keep("second"), path + ".unreadable2");
    EXPECT_EQ(ReadWholeFile(path + ".unreadable"), "first");
    EXPECT_EQ(ReadWholeFile(path + ".unreadable3"), "third");
    EXPECT_EQ(ReadWholeFile(path), "second");
    EXPECT_EQ(folder.Count(), 4);
}
