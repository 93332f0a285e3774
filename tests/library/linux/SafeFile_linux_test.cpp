#include "uPath.h"
#include "uSafeFile.h"

#include <filesystem>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace murala
{

namespace
{

TEST(SafeFile, LeavesPipesAndDevicesInTheirPlace)
{
    const auto pipe = std::filesystem::temp_directory_path() / "murala-safe-file-pipe";
    std::filesystem::remove(pipe);
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_THROW(ReplaceWholeFile(PathText(pipe), "x", TFlush::ToSystemCache), EFileError);
    EXPECT_TRUE(std::filesystem::is_fifo(pipe));
    EXPECT_FALSE(std::filesystem::exists(PathText(pipe) + ".new"));
    std::filesystem::remove(pipe);
}

} // namespace

} // namespace murala
