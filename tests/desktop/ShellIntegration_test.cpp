#include "uShellIntegration.h"

#include "uDesktopFakes.h"
#include "uProgramFolder.h"
#include "uSafeFile.h"
#include "uTempFolder.h"

#include <gtest/gtest.h>

using namespace murala;

namespace
{

TEST(ShellIntegration, StartsTheInstalledProgramAndSaysWhenThatIsMissing)
{
    TFakeFileMenu menu;
    SetShellIntegration(menu, true);
    ASSERT_EQ(menu.Commands.size(), 1U);
    EXPECT_EQ(menu.Commands[0].Verb, "Add to Murala");
    EXPECT_EQ(menu.Commands[0].Extensions, (std::vector<std::string>{".bmp", ".jpg"}));
    EXPECT_EQ(menu.Commands[0].Program, InstalledProgramFile());
    EXPECT_TRUE(IsShellIntegrated(menu));
    SetShellIntegration(menu, false);
    EXPECT_FALSE(IsShellIntegrated(menu));
    EXPECT_EQ(ShellIntegrationProblem().empty(), FileExists(InstalledProgramFile()));
}

TEST(ShellIntegration, ArgumentsThatNameFilesAreQueuedWithFullPaths)
{
    const TTempFolder folder;
    std::filesystem::create_directory(NativePath(folder.File("sub")));
    const std::string inside = PathText(NativePath("sub") / NativePath("f.bmp"));
    for (const std::string& name :
         std::vector<std::string>{"A b.jpg", "c.bmp", "d.bmp", "e.txt", inside})
        ReplaceWholeFile(folder.File(name), "x", TFlush::ToSystemCache);
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(NativePath(folder.Path()));
    TFakeFileQueue queue;
    EXPECT_TRUE(QueueFilesFromCommandLine(queue, {"/apply", "A b.jpg", folder.File("missing.jpg"),
                                                  "", folder.File("*.bmp"), folder.File("e.txt"),
                                                  "*.none", inside}));
    std::filesystem::current_path(before);
    EXPECT_EQ(queue.Names, (std::vector<std::string>{folder.File("A b.jpg"), folder.File("c.bmp"),
                                                     folder.File("e.txt"), folder.File(inside)}));
    queue.Refuses = true;
    EXPECT_TRUE(QueueFilesFromCommandLine(queue, {"/apply"}));
    EXPECT_FALSE(QueueFilesFromCommandLine(queue, {folder.File("e.txt")}));
}

} // namespace
