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

const std::string Command = InstalledProgramFile() + " \"%1\"";
const std::string BitmapVerb = "Paint.Picture\\Shell\\Add to Murala";

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
    EXPECT_EQ(registry.ReadText(TRoot::ClassesRoot, BitmapVerb + "\\Command", ""), Command);
    EXPECT_EQ(registry.ReadText(TRoot::ClassesRoot, "jpegfile\\Shell\\Add to Murala\\Command", ""),
              Command);
    RemoveShellCommand(registry, ".jpg", ShellVerb);
    EXPECT_FALSE(IsShellIntegrated(registry)) << "one of two is not enough";
    SetShellIntegration(registry, false);
    EXPECT_EQ(registry.Keys, before);
    SetShellIntegration(registry, false);
    EXPECT_EQ(registry.Keys, before) << "nothing to remove";
}

TEST(ShellIntegration, VerbOfAnUnknownTypeLiesInTheRootsShellKey)
{
    TFakeRegistry registry;
    AddShellCommand(registry, ".bmp", ShellVerb, Command);
    EXPECT_TRUE(registry.KeyExists(TRoot::ClassesRoot, "Shell\\Add to Murala\\Command"));
}

TEST(ShellIntegration, OrdinaryUsersHaveTheirOwnVerbsAndStartEntry)
{
    TFakeRegistry registry = RegistryWithTypes();
    registry.Refused = {TRoot::ClassesRoot, TRoot::LocalMachine};
    SetShellIntegration(registry, true);
    SetRunValue(registry, ApplicationTitle, "C:\\Murala.exe /apply");
    EXPECT_TRUE(IsShellIntegrated(registry));
    EXPECT_TRUE(RunValueExists(registry, ApplicationTitle));
    EXPECT_EQ(
        registry.ReadText(TRoot::CurrentUser, "Software\\Classes\\" + BitmapVerb + "\\Command", ""),
        Command);
    EXPECT_EQ(registry.ReadText(TRoot::CurrentUser, std::string(RunKey), "Murala"),
              "C:\\Murala.exe /apply");
    SetShellIntegration(registry, false);
    DeleteRunValue(registry, ApplicationTitle);
    EXPECT_FALSE(ShellCommandExists(registry, ".bmp", ShellVerb));
    EXPECT_FALSE(RunValueExists(registry, ApplicationTitle));
}

TEST(ShellIntegration, StartEntryIsTheMachinesWhereThatIsAllowed)
{
    TFakeRegistry registry;
    SetRunValue(registry, ApplicationTitle, "a");
    SetRunValue(registry, ApplicationTitle, "b");
    EXPECT_EQ(registry.ReadText(TRoot::LocalMachine, std::string(RunKey), "Murala"), "b");
    EXPECT_FALSE(registry.KeyExists(TRoot::CurrentUser, std::string(RunKey)));
    // What an administrator has set right is not set again for the user.
    registry.Refused = {TRoot::LocalMachine};
    SetRunValue(registry, ApplicationTitle, "b");
    EXPECT_FALSE(registry.KeyExists(TRoot::CurrentUser, std::string(RunKey)));
}

TEST(ShellIntegration, ArgumentsThatNameFilesAreQueuedWithFullPaths)
{
    const TTempFolder folder;
    for (const char* name : {"A b.jpg", "c.bmp", "d.bmp", "e.txt"})
        ReplaceWholeFile(folder.File(name), "x", TFlush::ToSystemCache);
    std::filesystem::create_directory(NativePath(folder.File("sub")));
    const std::string inside = PathText(NativePath("sub") / NativePath("f.bmp"));
    ReplaceWholeFile(folder.File(inside), "", TFlush::ToSystemCache);
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(NativePath(folder.Path()));
    TFakeRegistry registry;
    QueueFilesFromCommandLine(registry, {"/apply", "A b.jpg", folder.File("missing.jpg"), "",
                                         folder.File("*.bmp"), folder.File("e.txt"), "A b.jpg",
                                         "*.none", inside});
    std::filesystem::current_path(before);

    auto files = TakeQueuedFiles(registry);
    std::ranges::sort(files);
    EXPECT_EQ(files, (std::vector<std::string>{folder.File("A b.jpg"), folder.File("c.bmp"),
                                               folder.File("e.txt"), folder.File(inside)}));
    EXPECT_TRUE(TakeQueuedFiles(registry).empty());
}

} // namespace
