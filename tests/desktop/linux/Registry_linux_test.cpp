#include "uDesktopEntry.h"
#include "uMenuEntries.h"
#include "uProcess.h"
#include "uRegistry.h"
#include "uSafeFile.h"
#include "uShellIntegration.h"
#include "uTestSession.h"

#include <gio/gdesktopappinfo.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sys/wait.h>

using namespace murala;

namespace
{

bool IsValidEntry(const std::string& file)
{
    return RunProgram({"desktop-file-validate", file});
}

TEST(LinuxRegistry, QueueTakesNamesOfEveryKind)
{
    TTestSession session;
    const auto registry = NewRegistry(session.ProgramFolder());
    const std::string key(AddFilesKey);
    const std::vector<std::string> names = {"/a=b;c.jpg", "/A=b;c.jpg", "/tab\tline\nback\\n.bmp",
                                            "/[x] ü \".jpg", " /blank "};
    for (const std::string& name : names)
        EXPECT_TRUE(registry->WriteText(TRoot::CurrentUser, key, name, ""));
    EXPECT_TRUE(
        registry->WriteText(TRoot::CurrentUser, "software\\murala\\addfiles", names[0], "x"));
    EXPECT_EQ(registry->ReadText(TRoot::CurrentUser, key, names[0]), "x");
    EXPECT_TRUE(registry->KeyExists(TRoot::CurrentUser, key));
    EXPECT_FALSE(registry->KeyExists(TRoot::CurrentUser, "Software\\Murala"));
    EXPECT_EQ(TakeQueuedFiles(*registry), names);
    EXPECT_TRUE(TakeQueuedFiles(*registry).empty());
    EXPECT_FALSE(registry->WriteText(TRoot::LocalMachine, key, "a", ""));
}

TEST(LinuxRegistry, ProcessesThatWriteAtTheSameTimeLoseNothing)
{
    TTestSession session;
    std::vector<pid_t> processes;
    for (int process = 0; process < 4; process++) {
        processes.push_back(fork());
        if (processes.back() != 0)
            continue;
        const auto registry = NewRegistry(session.ProgramFolder());
        for (int i = 0; i < 25; i++)
            registry->WriteText(TRoot::CurrentUser, std::string(AddFilesKey),
                                std::to_string(process * 25 + i), "");
        _exit(0);
    }
    for (const pid_t process : processes)
        waitpid(process, nullptr, 0);
    const auto registry = NewRegistry(session.ProgramFolder());
    EXPECT_EQ(TakeQueuedFiles(*registry).size(), 100U);
}

TEST(LinuxRegistry, FolderThatCannotBeWrittenRefuses)
{
    TTestSession session;
    const auto registry = NewRegistry(session.File("missing/"));
    EXPECT_FALSE(registry->WriteText(TRoot::CurrentUser, "a", "b", "c"));
    EXPECT_TRUE(registry->ValueNames(TRoot::CurrentUser, "a").empty());
}

TEST(Autostart, RunValueIsAnEntryThatTheUserCanSwitchOff)
{
    TTestSession session;
    session.AddProgram("my $murala", "");
    const std::string command = session.File("bin/my $murala") + " /apply";
    const auto registry = NewRegistry(session.ProgramFolder());
    EXPECT_FALSE(RunValueExists(*registry, ApplicationTitle));
    SetRunValue(*registry, ApplicationTitle, command);
    EXPECT_TRUE(RunValueExists(*registry, ApplicationTitle));
    EXPECT_EQ(registry->ReadText(TRoot::CurrentUser, std::string(RunKey), "Murala"), command);

    const std::string file = session.File(".config/autostart/murala.desktop");
    EXPECT_TRUE(IsValidEntry(file));
    const TGObject<GDesktopAppInfo> info(g_desktop_app_info_new_from_filename(file.c_str()));
    ASSERT_TRUE(info) << "GLib finds the program of the entry";
    int count = 0;
    char** arguments = nullptr;
    ASSERT_TRUE(g_shell_parse_argv(g_app_info_get_commandline(G_APP_INFO(info.get())), &count,
                                   &arguments, nullptr));
    EXPECT_EQ(std::string(arguments[0]), session.File("bin/my $murala"));
    EXPECT_EQ(std::string(arguments[1]), "/apply");
    g_strfreev(arguments);

    TDesktopEntry entry(file);
    entry.Write("Hidden", "true");
    ASSERT_TRUE(entry.Save());
    EXPECT_FALSE(RunValueExists(*registry, ApplicationTitle));
    SetRunValue(*registry, ApplicationTitle, command);
    EXPECT_TRUE(RunValueExists(*registry, ApplicationTitle));
    DeleteRunValue(*registry, ApplicationTitle);
    EXPECT_FALSE(FileExists(file));
}

TEST(MenuEntries, VerbIsOfferedForBothTypesInEveryForm)
{
    TTestSession session;
    const auto registry = NewRegistry(session.ProgramFolder());
    EXPECT_EQ(ReadFileType(*registry, ".bmp"), "image/bmp");
    EXPECT_EQ(ReadFileType(*registry, ".jpg"), "image/jpeg");
    EXPECT_EQ(ReadFileType(*registry, ".nosuch"), "");
    SetShellIntegration(*registry, true);
    EXPECT_TRUE(IsShellIntegrated(*registry));
    const std::string application = session.File(".local/share/applications/murala-add.desktop");
    const std::string serviceMenu =
        session.File(".local/share/kio/servicemenus/murala-add.desktop");
    const std::string script = session.File(".local/share/nautilus/scripts/Add to Murala");
    EXPECT_TRUE(IsValidEntry(application));
    EXPECT_EQ(TDesktopEntry(application).ReadList("MimeType"),
              (std::vector<std::string>{"image/bmp", "image/jpeg"}));
    EXPECT_TRUE(IsValidEntry(serviceMenu));
    EXPECT_NE(ReadWholeFile(serviceMenu).find("[Desktop Action AddToMurala]"), std::string::npos);
    EXPECT_EQ(access(serviceMenu.c_str(), X_OK), 0);
    EXPECT_EQ(access(script.c_str(), X_OK), 0);

    RemoveShellCommand(*registry, ".bmp", ShellVerb);
    EXPECT_FALSE(IsShellIntegrated(*registry));
    EXPECT_TRUE(ShellCommandExists(*registry, ".jpg", ShellVerb));
    RemoveShellCommand(*registry, ".jpg", ShellVerb);
    for (const std::string& file : {application, serviceMenu, script})
        EXPECT_FALSE(FileExists(file)) << file;
}

TEST(MenuEntries, ProgramIsGivenTheChosenFiles)
{
    TTestSession session;
    session.AddRecorder("my $murala");
    const std::string program = session.File("bin/my $murala");
    ASSERT_TRUE(WriteMenuEntry("image/bmp", program + " \"%1\""));
    const TGObject<GDesktopAppInfo> info(g_desktop_app_info_new_from_filename(
        session.File(".local/share/applications/murala-add.desktop").c_str()));
    ASSERT_TRUE(info);
    const TGObject<GFile> first(g_file_new_for_path("/a b.bmp"));
    const TGObject<GFile> second(g_file_new_for_path("/ü'.bmp"));
    GList last{second.get(), nullptr, nullptr};
    GList files{first.get(), &last, nullptr};
    const std::vector<std::string> expected = {"my $murala", "/a b.bmp", "/ü'.bmp"};
    ASSERT_TRUE(g_app_info_launch(G_APP_INFO(info.get()), &files, nullptr, nullptr));
    EXPECT_TRUE(Eventually([&] { return session.Recorded() == expected; }));

    DeleteFileIfPresent(session.File("recorded"));
    ASSERT_TRUE(RunProgram(
        {session.File(".local/share/nautilus/scripts/Add to Murala"), "/a b.bmp", "/ü'.bmp"}));
    EXPECT_EQ(session.Recorded(), expected);
}

} // namespace
