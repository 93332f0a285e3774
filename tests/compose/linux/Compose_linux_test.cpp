#include "uCompose.h"

#include "../Pictures.h"

#include <cstdlib>

using namespace murala;
namespace fs = std::filesystem;

TEST(Compose, WithoutAFolderOfOurOwnNothingIsWritten)
{
    const TTempFolder folder;
    for (const char* name : {"work", "other"})
        fs::create_directory(NativePath(folder.File(name)));
    fs::create_directory_symlink(folder.File("other"), NativePath(folder.File("murala")));
    setenv("XDG_RUNTIME_DIR", folder.Path().c_str(), 1);
    setenv("TMPDIR", folder.File("none").c_str(), 1);
    const fs::path before = fs::current_path();
    fs::current_path(NativePath(folder.File("work")));
    try {
        SaveWallpaper(NumberedBitmap(2, 2), "");
        ADD_FAILURE();
    } catch (const EFileError& error) {
        EXPECT_NE(std::string(error.what()).find(folder.File("murala")), std::string::npos);
    }
    fs::current_path(before);
    unsetenv("XDG_RUNTIME_DIR");
    unsetenv("TMPDIR");
    EXPECT_TRUE(fs::is_empty(NativePath(folder.File("work"))));
    EXPECT_TRUE(fs::is_empty(NativePath(folder.File("other"))));
}
