#include "uShellIntegration.h"

#include "uDesktopFakes.h"
#include "uProgramFolder.h"
#include "uSafeFile.h"
#include "uTempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace murala;

namespace
{

const std::string BitmapVerb = "Paint.Picture\\Shell\\Add to Murala\\Command";
const std::string JpegVerb = "jpegfile\\Shell\\Add to Murala\\Command";

TFakeRegistry RegistryWithTypes()
{
    TFakeRegistry registry;
    registry.Keys[{TRoot::ClassesRoot, ".bmp"}][""] = "Paint.Picture";
    registry.Keys[{TRoot::ClassesRoot, ".jpg"}][""] = "jpegfile\\";
    return registry;
}

TEST(ShellIntegration, VerbLiesBelowEachFileTypeAndGoesWithoutTrace)
{
    TFakeRegistry registry = RegistryWithTypes();
    const auto before = registry.Keys;
    SetShellIntegration(registry, true);
    EXPECT_TRUE(IsShellIntegrated(registry));
    for (const std::string& key : {BitmapVerb, JpegVerb})
        EXPECT_EQ(registry.ReadText(TRoot::ClassesRoot, key, ""),
                  InstalledProgramFile() + " \"%1\"");
    RemoveShellCommand(registry, ".jpg", ShellVerb);
    EXPECT_FALSE(IsShellIntegrated(registry)) << "one of two is not enough";
    for (int i = 0; i < 2; i++) {
        SetShellIntegration(registry, false);
        EXPECT_EQ(registry.Keys, before);
    }
    AddShellCommand(registry, ".png", ShellVerb, "x");
    EXPECT_TRUE(registry.KeyExists(TRoot::ClassesRoot, "Shell\\Add to Murala\\Command"))
        << "of a type that is not known";
}

TEST(ShellIntegration, OrdinaryUsersHaveTheirOwnVerbs)
{
    TFakeRegistry registry = RegistryWithTypes();
    registry.Refused = {TRoot::ClassesRoot, TRoot::LocalMachine};
    const auto before = registry.Keys;
    SetShellIntegration(registry, true);
    EXPECT_TRUE(IsShellIntegrated(registry));
    EXPECT_TRUE(registry.KeyExists(TRoot::CurrentUser, "Software\\Classes\\" + BitmapVerb));
    SetShellIntegration(registry, false);
    EXPECT_EQ(registry.Keys, before);
}

TEST(ShellIntegration, StartEntryIsTheMachinesWhereThatIsAllowed)
{
    TFakeRegistry registry;
    const std::string key(RunKey);
    for (const char* command : {"a", "b"})
        SetRunValue(registry, ApplicationTitle, command);
    registry.Refused = {TRoot::LocalMachine};
    SetRunValue(registry, ApplicationTitle, "b");
    EXPECT_EQ(registry.ReadText(TRoot::LocalMachine, key, "Murala"), "b");
    EXPECT_FALSE(registry.KeyExists(TRoot::CurrentUser, key)) << "nothing to be set right";

    registry.Keys.clear();
    SetRunValue(registry, ApplicationTitle, "b");
    EXPECT_EQ(registry.ReadText(TRoot::CurrentUser, key, "Murala"), "b");
    EXPECT_TRUE(RunValueExists(registry, ApplicationTitle));
    DeleteRunValue(registry, ApplicationTitle);
    EXPECT_FALSE(RunValueExists(registry, ApplicationTitle));
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
    TFakeRegistry registry;
    QueueFilesFromCommandLine(registry, {"/apply", "A b.jpg", folder.File("missing.jpg"), "",
                                         folder.File("*.bmp"), folder.File("e.txt"), "A b.jpg",
                                         "*.none", inside});
    std::filesystem::current_path(before);

    registry.Refused = {TRoot::CurrentUser};
    EXPECT_TRUE(TakeQueuedFiles(registry).empty()) << "they would come again and again";
    registry.Refused = {};
    auto files = TakeQueuedFiles(registry);
    std::ranges::sort(files);
    EXPECT_EQ(files, (std::vector<std::string>{folder.File("A b.jpg"), folder.File("c.bmp"),
                                               folder.File("e.txt"), folder.File(inside)}));
    EXPECT_TRUE(TakeQueuedFiles(registry).empty());
}

} // namespace
