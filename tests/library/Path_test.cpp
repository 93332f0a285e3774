#include "uPath.h"

#include <gtest/gtest.h>

using namespace murala;

TEST(Path, IsDividedAndJoinedByItsOwnForm)
{
    using TCase = std::tuple<const char*, const char*, const char*, bool>;
    const TCase cases[] = {{R"(C:\P\)", "a.jpg", ".jpg", true}, {"C:/P/", "a.b.gz", ".gz", false},
                           {R"(\\s\a.b\)", "Sea", "", false},   {R"(/odd\/)", "jpg", "", false},
                           {"/p.bmp/", ".JPEG", ".JPEG", true}, {"/", R"(\:.Bmp)", ".Bmp", true},
                           {"", "Sea.jpg.", ".", false},        {"/p/", "", "", false}};
    for (const auto& [folder, name, extension, isPicture] : cases) {
        const std::string path = JoinPath(folder, name);
        EXPECT_EQ(FolderPart(path), folder) << path;
        EXPECT_EQ(FileNamePart(path), name) << path;
        EXPECT_EQ(ExtensionPart(path), extension) << path;
        EXPECT_EQ(HasPictureExtension(path), isPicture) << path;
    }
    EXPECT_EQ(FolderPart("c:Sea"), "c:");
    EXPECT_EQ(JoinPath(R"(C:\Pictures)", "a"), R"(C:\Pictures\a)");
    EXPECT_EQ(JoinPath(R"(/odd\)", "a"), R"(/odd\/a)");
    EXPECT_FALSE(FileExists("broken \xFF\xFE name"));
}
