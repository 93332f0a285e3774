#include "uPath.h"

#include <gtest/gtest.h>

using namespace murala;

TEST(Path, IsDividedByItsOwnForm)
{
    const struct {
        const char *Path, *Folder, *Name, *Extension;
    } cases[] = {
        {R"(C:\Pictures\Sea.jpg)", R"(C:\Pictures\)", "Sea.jpg", ".jpg"},
        {R"(C:/Pictures/Sea.tar.gz)", "C:/Pictures/", "Sea.tar.gz", ".gz"},
        {R"(c:Sea)", "c:", "Sea", ""},
        {R"(\\server\share\a.b\Sea)", R"(\\server\share\a.b\)", "Sea", ""},
        {"/home/me/a.b/Sea", "/home/me/a.b/", "Sea", ""},
        {R"(/home/me/a\b:c.bmp)", "/home/me/", R"(a\b:c.bmp)", ".bmp"},
        {"Sea.", "", "Sea.", "."},
        {"/home/.hidden", "/home/", ".hidden", ".hidden"},
        {"", "", "", ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(FolderPart(c.Path), c.Folder) << c.Path;
        EXPECT_EQ(FileNamePart(c.Path), c.Name) << c.Path;
        EXPECT_EQ(ExtensionPart(c.Path), c.Extension) << c.Path;
    }
}

TEST(Path, IsJoinedWithOneDividerOfItsForm)
{
    EXPECT_EQ(JoinPath(R"(C:\Pictures)", "a"), R"(C:\Pictures\a)");
    EXPECT_EQ(JoinPath(R"(C:\Pictures\)", "a"), R"(C:\Pictures\a)");
    EXPECT_EQ(JoinPath("C:/Pictures/", "a"), "C:/Pictures/a");
    EXPECT_EQ(JoinPath("/home", "a"), "/home/a");
    EXPECT_EQ(JoinPath("/", "a"), "/a");
    EXPECT_EQ(JoinPath(R"(/odd\)", "a"), R"(/odd\/a)");
    EXPECT_EQ(JoinPath("", "a"), "a");
}

TEST(Path, KnowsPicturesByTheirExtension)
{
    for (const char* picture : {"a.jpg", "/x/a.JPEG", R"(C:\a.b\c.Bmp)"})
        EXPECT_TRUE(HasPictureExtension(picture)) << picture;
    for (const char* other : {"jpg", "a.jpg.txt", "a.png", "/x.jpg/a", ""})
        EXPECT_FALSE(HasPictureExtension(other)) << other;
}

TEST(Path, GoesToTheSystemAndBackUnchanged)
{
    const std::string name = "S\xC3\xBC\xE2\x82\xAC\xF0\x9F\x8C\x8A.jpg";
    EXPECT_EQ(PathText(NativePath(name)), name);
    EXPECT_FALSE(FileExists("broken \xFF\xFE name"));
}
