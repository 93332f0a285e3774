#include "uSafeFile.h"

#include "uTempFolder.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace murala;
namespace fs = std::filesystem;

namespace
{

// While it lives no file can grow beyond the limit, as on a full disk.
class TSmallDisk
{
public:
    explicit TSmallDisk(rlim_t limit)
    {
        getrlimit(RLIMIT_FSIZE, &m_old);
        rlimit small = m_old;
        small.rlim_cur = limit;
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~TSmallDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_old);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    rlimit m_old{};
    void (*m_handler)(int) = std::signal(SIGXFSZ, SIG_IGN);
};

} // namespace

TEST(SafeFile, AFullDiskLeavesTheOldFile)
{
    const TTempFolder folder;
    const std::string path = folder.File("list");
    ReplaceWholeFile(path, "old", TFlush::ToDisk);
    // A size that fails while writing and one that fails in the last flush.
    for (const std::size_t size : {std::size_t{1'000'000}, std::size_t{1'500}}) {
        const TSmallDisk disk(1000);
        EXPECT_THROW(ReplaceWholeFile(path, std::string(size, 'x'), TFlush::ToDisk), EFileError);
        EXPECT_THROW(ReplaceWholeFile(path, std::string(size, 'x'), TFlush::ToSystemCache),
                     EFileError);
    }
    EXPECT_EQ(ReadWholeFile(path), "old");
    EXPECT_EQ(folder.Count(), 1);
}

TEST(SafeFile, FollowsLinksAndKeepsPermissions)
{
    const TTempFolder folder;
    fs::create_directory(NativePath(folder.File("real")));
    fs::create_symlink("real/list", NativePath(folder.File("second")));
    fs::create_symlink("second", NativePath(folder.File("first")));
    ReplaceWholeFile(folder.File("first"), "made through a link", TFlush::ToDisk);
    const auto target = NativePath(folder.File("real/list"));
    fs::permissions(target, fs::perms::owner_read | fs::perms::owner_write);
    ReplaceWholeFile(folder.File("first"), "written again", TFlush::ToDisk);
    EXPECT_EQ(ReadWholeFile(folder.File("real/list")), "written again");
    EXPECT_EQ(fs::status(target).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_TRUE(fs::is_symlink(NativePath(folder.File("first"))));
    EXPECT_TRUE(fs::is_symlink(NativePath(folder.File("second"))));
}

TEST(SafeFile, LeavesPipesAndDevicesInTheirPlace)
{
    const TTempFolder folder;
    ASSERT_EQ(mkfifo(folder.File("pipe").c_str(), 0600), 0);
    EXPECT_THROW(ReplaceWholeFile(folder.File("pipe"), "x", TFlush::ToSystemCache), EFileError);
    EXPECT_TRUE(fs::is_fifo(NativePath(folder.File("pipe"))));
    EXPECT_EQ(folder.Count(), 1);
}
