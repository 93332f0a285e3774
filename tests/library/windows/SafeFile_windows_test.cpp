#include "uSafeFile.h"

#include "uTempFolder.h"

#include <thread>
#include <windows.h>

using namespace murala;

namespace
{

// Opens the file so that others may read and write, but not replace it.
HANDLE Hold(const std::string& path)
{
    return CreateFileW(NativePath(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                       nullptr, OPEN_EXISTING, 0, nullptr);
}

} // namespace

TEST(SafeFile, WaitsForAFileThatIsHeldForAMoment)
{
    const TTempFolder folder;
    const std::string path = folder.File("list");
    ReplaceWholeFile(path, "old", TFlush::ToDisk);
    HANDLE file = Hold(path);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    std::thread release([file] {
        Sleep(50);
        CloseHandle(file);
    });
    EXPECT_NO_THROW(ReplaceWholeFile(path, "new", TFlush::ToDisk));
    release.join();
    EXPECT_EQ(ReadWholeFile(path), "new");
}

TEST(SafeFile, AFileThatStaysLockedIsLeftAsItWas)
{
    const TTempFolder folder;
    const std::string path = folder.File("list");
    ReplaceWholeFile(path, "old", TFlush::ToDisk);
    HANDLE file = Hold(path);
    EXPECT_THROW(ReplaceWholeFile(path, "new", TFlush::ToDisk), EFileError);
    CloseHandle(file);
    EXPECT_EQ(ReadWholeFile(path), "old");
    EXPECT_EQ(folder.Count(), 1);
}
