#include "uSafeFile.h"

#include "uTempFolder.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace murala;
namespace fs = std::filesystem;

TEST(SafeFile, AFullDiskLeavesTheOldFile)
{
    const TTempFolder folder;
    const std::string path = folder.Write("list", "old");
    // No file can grow beyond the limit, as on a full disk.
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit small{1000, limit.rlim_max};
    std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    // A size that fails while writing and one that fails in the last flush.
    for (const std::size_t size : {std::size_t{1'000'000}, std::size_t{1'500}})
        for (const TFlush flush : {TFlush::ToDisk, TFlush::ToSystemCache})
            EXPECT_THROW(ReplaceWholeFile(path, std::string(size, 'x'), flush), EFileError);
    setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_EQ(ReadWholeFile(path), "old");
    EXPECT_EQ(folder.Count(), 1);
}

TEST(SafeFile, FollowsLinksAndKeepsPermissions)
{
    const TTempFolder folder;
    const auto first = NativePath(folder.File("first")), second = NativePath(folder.File("second"));
    fs::create_directory(NativePath(folder.File("real")));
    fs::create_symlink("real/list", second);
    fs::create_symlink("second", first);
    folder.Write("first", "made through a link");
    const auto target = NativePath(folder.File("real/list"));
    fs::permissions(target, fs::perms{0600});
    folder.Write("first", "written again");
    EXPECT_EQ(ReadWholeFile(PathText(target)), "written again");
    EXPECT_EQ(fs::status(target).permissions(), fs::perms{0600});
    EXPECT_TRUE(fs::is_symlink(first) && fs::is_symlink(second));
}

TEST(SafeFile, LeavesPipesAndDevicesInTheirPlace)
{
    const TTempFolder folder;
    ASSERT_EQ(mkfifo(folder.File("pipe").c_str(), 0600), 0);
    EXPECT_THROW(folder.Write("pipe", "x"), EFileError);
    EXPECT_TRUE(fs::is_fifo(NativePath(folder.File("pipe"))));
}
