#include "uPath.h"

#include <gtest/gtest.h>

using namespace murala;

TEST(Path, IsDividedAndJoinedByItsOwnForm)
{
    const struct {
        const char *Folder, *Name, *Extension;
    } cases[] = {{R"(C:\P\)", "a.jpg", ".jpg"}, {"C:/P/", "a.b.gz", ".gz"},
                 {R"(\\s\a.b\)", "Sea", ""},    {R"(/odd\/)", "jpg", ""},
                 {"/p.bmp/", ".JPEG", ".JPEG"}, {"/", R"(\:.Bmp)", ".Bmp"},
                 {"", "Sea.jpg.", "."},         {"/p/", "", ""}};
    for (const auto& [folder, name, extension] : cases) {
        const std::string path = JoinPath(folder, name);
        EXPECT_EQ(FolderPart(path), folder) << path;
        EXPECT_EQ(FileNamePart(path), name) << path;
        EXPECT_EQ(ExtensionPart(path), extension) << path;
    }
    EXPECT_EQ(FolderPart("c:Sea"), "c:");
    EXPECT_EQ(JoinPath(R"(C:\Pictures)", "a"), R"(C:\Pictures\a)");
    EXPECT_EQ(JoinPath(R"(/odd\)", "a"), R"(/odd\/a)");
    EXPECT_FALSE(FileExists("broken \xFF\xFE name"));
}

TEST(Path, InASettingBeginsAtTheProgramFolderUnlessItSaysOtherwise)
{
    const struct {
        const char *Folder, *Path, *Resolved;
    } cases[] = {
        {"/home/me/murala/", "small", "/home/me/murala/small"},
        {"/home/me/murala/", "/mnt/small", "/mnt/small"},
        {"/home/me/murala/", R"(C:\small)", R"(/home/me/murala/C:\small)"},
        {R"(C:\Murala\)", R"(small\)", R"(C:\Murala\small\)"},
        {R"(C:\Murala\)", R"(\small)", R"(C:\small)"},
        {R"(C:\Murala\)", "/small", "C:/small"},
        {R"(C:\Murala\)", R"(D:\small)", R"(D:\small)"},
        {R"(C:\Murala\)", R"(\\server\share)", R"(\\server\share)"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ResolvePath(c.Folder, c.Path), c.Resolved) << c.Folder << ' ' << c.Path;
}
