#include "uSafeFile.h"

#include "uTempFolder.h"

using namespace murala;

TEST(SafeFile, ReplacesWhenItIsCommittedAndLeavesNothingBeside)
{
    const TTempFolder folder;
    const std::string path = folder.File("L\xC3\xA4nge \xE2\x82\xAC.txt");
    ReplaceWholeFile(path + ".new", "half-written by a run that was killed", TFlush::ToDisk);
    for (const std::string& content : {std::string("old"), std::string("a\0b\r\n\x1A", 6),
                                       std::string(200000, 'x'), std::string()})
        for (TFlush flush : {TFlush::ToDisk, TFlush::ToSystemCache}) {
            ReplaceWholeFile(path, content, flush);
            TFileReplacement(path, flush).Write("half", 4);
            EXPECT_EQ(ReadWholeFile(path), content);
        }
    EXPECT_EQ(folder.Count(), 1);
}

TEST(SafeFile, LeavesAFileAloneThatHasTheContentAlready)
{
    const TTempFolder folder;
    const auto path = NativePath(folder.Write("list", "same"));
    const auto before = std::filesystem::last_write_time(path) - std::chrono::hours(1);
    std::filesystem::last_write_time(path, before);
    ReplaceWholeFile(PathText(path), "same", TFlush::ToDisk);
    EXPECT_EQ(std::filesystem::last_write_time(path), before);
    ReplaceWholeFile(PathText(path), "diff", TFlush::ToDisk);
    EXPECT_EQ(ReadWholeFile(PathText(path)), "diff");
}

TEST(SafeFile, SaysWhatFailedOnWhichFile)
{
    const TTempFolder folder;
    EXPECT_THROW(ReadWholeFile(folder.Path()), EFileError);
    EXPECT_THROW(folder.Write(".", "x"), EFileError);
    try {
        folder.Write("missing/list", "x");
        ADD_FAILURE();
    } catch (const EFileError& error) {
        EXPECT_NE(std::string(error.what()).find(folder.File("missing")), std::string::npos);
    }
    EXPECT_EQ(folder.Count(), 0);
}

TEST(SafeFile, DoesNotReplaceAReadOnlyFile)
{
    const TTempFolder folder;
    const std::string path = folder.Write("list", "old");
    std::filesystem::permissions(NativePath(path), std::filesystem::perms::owner_read);
    if (std::FILE* file = std::fopen(path.c_str(), "r+b")) {
        std::fclose(file);
        GTEST_SKIP() << "this user may write everything";
    }
    EXPECT_THROW(folder.Write("list", "new"), EFileError);
    EXPECT_EQ(ReadWholeFile(path), "old");
    std::filesystem::permissions(NativePath(path), std::filesystem::perms::owner_all);
}

TEST(SafeFile, KeepsEveryUnreadableFileOnce)
{
    const TTempFolder folder;
    const std::string kept = folder.File("list.unreadable");
    const struct {
        const char* Content;
        std::string Copy;
    } cases[] = {
        {"first", kept}, {"second", kept + "2"}, {"third", kept + "3"}, {"second", kept + "2"}};
    for (const auto& [content, copy] : cases) {
        EXPECT_EQ(KeepUnreadableFile(folder.Write("list", content)), copy);
        EXPECT_EQ(ReadWholeFile(copy), content);
    }
    EXPECT_EQ(folder.Count(), 4);
}
