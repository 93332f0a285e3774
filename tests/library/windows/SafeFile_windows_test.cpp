#include "uSafeFile.h"

#include "uTempFolder.h"

#include <thread>
#include <windows.h>

using namespace murala;

TEST(SafeFile, WaitsForAFileThatIsHeldForAMomentOnly)
{
    const TTempFolder folder;
    const std::string path = folder.Write("list", "old");
    // Others may read and write the file, but not replace it.
    HANDLE file =
        CreateFileW(NativePath(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    EXPECT_THROW(folder.Write("list", "new"), EFileError);
    EXPECT_EQ(ReadWholeFile(path), "old");
    EXPECT_EQ(folder.Count(), 1);
    std::thread release([file] {
        Sleep(50);
        CloseHandle(file);
    });
    EXPECT_NO_THROW(folder.Write("list", "new"));
    release.join();
    EXPECT_EQ(ReadWholeFile(path), "new");
}
