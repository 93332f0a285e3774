#include "uTemporaryFolder.h"

#include "uTempFolder.h"

#include <cstdlib>
#include <unistd.h>

using namespace murala;
namespace fs = std::filesystem;

TEST(TemporaryFolder, IsTheUsersOwnAndFollowsNoLink)
{
    const TTempFolder folder;
    const std::string own = "murala-" + std::to_string(geteuid());
    for (const char* name : {"run", "tmp", "other"})
        fs::create_directory(NativePath(folder.File(name)));
    setenv("XDG_RUNTIME_DIR", folder.File("run").c_str(), 1);
    setenv("TMPDIR", folder.File("tmp").c_str(), 1);
    const std::string inRun = folder.File("run/murala"), inTmp = folder.File("tmp/" + own);
    EXPECT_EQ(TemporaryFolder(), inRun + '/');
    EXPECT_EQ(fs::status(NativePath(inRun)).permissions(), fs::perms::owner_all);
    EXPECT_EQ(TemporaryFolder(), inRun + '/');
    // Somebody may write into it.
    fs::permissions(NativePath(inRun), fs::perms{0770});
    EXPECT_EQ(TemporaryFolder(), inTmp + '/');
    // A planted link.
    fs::remove(NativePath(inTmp));
    fs::create_directory_symlink(folder.File("other"), NativePath(inTmp));
    EXPECT_THROW(TemporaryFolder(), EFileError);
    unsetenv("XDG_RUNTIME_DIR");
    EXPECT_THROW(TemporaryFolder(), EFileError);
    fs::remove(NativePath(inTmp));
    EXPECT_EQ(TemporaryFolder(), inTmp + '/');
    if (geteuid() == 0 && chown(inTmp.c_str(), 12345, 12345) == 0) {
        EXPECT_THROW(TemporaryFolder(), EFileError) << "it is somebody else's";
    }
    unsetenv("TMPDIR");
}

TEST(Path, WhatCannotBeToldIsNotMissing)
{
    const TTempFolder folder;
    fs::create_symlink("loop", NativePath(folder.File("loop")));
    EXPECT_THROW(FileExists(folder.File("loop")), EFileError);
    EXPECT_FALSE(IsReachableFile(folder.File("loop")));
    EXPECT_FALSE(FileExists(folder.File("loop.jpg")));
    EXPECT_FALSE(FileExists(folder.Write("file", "x") + "/below"));
}
