#include "uDesktopEntry.h"
#include "uProcess.h"
#include "uShellIntegration.h"
#include "uTestSession.h"

#include <gio/gdesktopappinfo.h>
#include <gtest/gtest.h>

#include <sys/wait.h>

using namespace murala;

namespace
{

const std::string QueueKey(AddFilesKey);

bool IsValidEntry(const std::string& file)
{
    return RunProgram({"desktop-file-validate", file});
}

TGObject<GAppInfo> LoadProgram(const std::string& file)
{
    return TGObject<GAppInfo>(G_APP_INFO(g_desktop_app_info_new_from_filename(file.c_str())));
}

TEST(LinuxRegistry, QueueTakesNamesOfEveryKind)
{
    const TTestSession session;
    const auto registry = NewRegistry();
    const TWords names = {"/a=b;c.jpg", "/A=b;c.jpg", "/tab\tline\nback\\n.bmp",
                          "/[x] ü \xFF\".jpg", " /blank "};
    for (const std::string& name : names)
        EXPECT_TRUE(registry->WriteText(TRoot::CurrentUser, QueueKey, name, ""));
    EXPECT_TRUE(
        registry->WriteText(TRoot::CurrentUser, "software\\murala\\addfiles", names[0], "x"));
    EXPECT_EQ(registry->ReadText(TRoot::CurrentUser, QueueKey, names[0]), "x");
    EXPECT_TRUE(registry->KeyExists(TRoot::CurrentUser, QueueKey));
    EXPECT_FALSE(registry->KeyExists(TRoot::CurrentUser, "Software\\Murala"));
    EXPECT_EQ(TakeQueuedFiles(*registry), names);
    EXPECT_TRUE(TakeQueuedFiles(*registry).empty());
    EXPECT_FALSE(registry->WriteText(TRoot::LocalMachine, QueueKey, "a", ""));
}

TEST(LinuxRegistry, FolderThatCannotBeMadeRefuses)
{
    const TTestSession session;
    session.Write(".local", "a file");
    EXPECT_FALSE(NewRegistry()->WriteText(TRoot::CurrentUser, QueueKey, "b", "c"));
    EXPECT_TRUE(TakeQueuedFiles(*NewRegistry()).empty());
}

TEST(LinuxRegistry, ProcessesThatWriteAtTheSameTimeLoseNothing)
{
    const TTestSession session;
    std::vector<pid_t> processes;
    for (int process = 0; process < 4; process++) {
        processes.push_back(fork());
        if (processes.back() != 0)
            continue;
        for (int i = 0; i < 25; i++)
            NewRegistry()->WriteText(TRoot::CurrentUser, QueueKey, std::to_string(process * 25 + i),
                                     "");
        _exit(0);
    }
    for (const pid_t process : processes)
        waitpid(process, nullptr, 0);
    EXPECT_EQ(TakeQueuedFiles(*NewRegistry()).size(), 100U);
}

TEST(Autostart, RunValueIsAnEntryThatTheUserCanSwitchOff)
{
    TTestSession session;
    session.AddRecorder("my $murala");
    const std::string command = session.File("bin/my $murala") + " /apply";
    const std::string file = session.File(".config/autostart/murala.desktop");
    const auto registry = NewRegistry();
    EXPECT_FALSE(RunValueExists(*registry, ApplicationTitle));
    SetRunValue(*registry, ApplicationTitle, command);
    EXPECT_EQ(registry->ReadText(TRoot::CurrentUser, std::string(RunKey), "Murala"), command);
    EXPECT_TRUE(IsValidEntry(file));
    ASSERT_TRUE(g_app_info_launch(LoadProgram(file).get(), nullptr, nullptr, nullptr));
    EXPECT_EQ(session.Recorded(), (TWords{"my $murala", "/apply"}));

    TDesktopEntry entry(file);
    entry.Write("Hidden", "true");
    ASSERT_TRUE(entry.Save());
    EXPECT_FALSE(RunValueExists(*registry, ApplicationTitle));
    SetRunValue(*registry, ApplicationTitle, command);
    EXPECT_TRUE(RunValueExists(*registry, ApplicationTitle));
    DeleteRunValue(*registry, ApplicationTitle);
    EXPECT_FALSE(FileExists(file));
}

TEST(MenuEntries, VerbIsOfferedForBothTypesInEveryFormAndGivenTheFiles)
{
    TTestSession session;
    const auto registry = NewRegistry();
    for (const auto& [extension, type] :
         {std::pair(".bmp", "image/bmp"), std::pair(".jpg", "image/jpeg"), std::pair(".none", "")})
        EXPECT_EQ(ReadFileType(*registry, extension), type);
    session.AddRecorder("my $murala");
    for (const std::string_view extension : ShellExtensions)
        AddShellCommand(*registry, extension, ShellVerb,
                        session.File("bin/my $murala") + " \"%1\"");
    EXPECT_TRUE(IsShellIntegrated(*registry));
    const std::string application = session.File(".local/share/applications/murala-add.desktop");
    const std::string menu = session.File(".local/share/kio/servicemenus/murala-add.desktop");
    const std::string script = session.File(".local/share/nautilus/scripts/Add to Murala");
    EXPECT_TRUE(IsValidEntry(application));
    EXPECT_TRUE(IsValidEntry(menu));
    EXPECT_NE(ReadWholeFile(menu).find("[Desktop Action AddToMurala]"), std::string::npos);
    EXPECT_EQ(access(menu.c_str(), X_OK), 0);
    EXPECT_EQ(TDesktopEntry(application).ReadList("MimeType"), (TWords{"image/bmp", "image/jpeg"}));

    const TGObject<GFile> first(g_file_new_for_path("/a b.bmp"));
    const TGObject<GFile> second(g_file_new_for_path("/ü'.bmp"));
    GList last{second.get(), nullptr, nullptr};
    GList files{first.get(), &last, nullptr};
    const TWords expected = {"my $murala", "/a b.bmp", "/ü'.bmp"};
    ASSERT_TRUE(g_app_info_launch(LoadProgram(application).get(), &files, nullptr, nullptr));
    EXPECT_EQ(session.Recorded(), expected);
    ASSERT_TRUE(RunProgram({script, expected[1], expected[2]}));
    EXPECT_EQ(session.Recorded(), expected);

    RemoveShellCommand(*registry, ".bmp", ShellVerb);
    EXPECT_FALSE(IsShellIntegrated(*registry));
    EXPECT_TRUE(ShellCommandExists(*registry, ".jpg", ShellVerb));
    RemoveShellCommand(*registry, ".jpg", ShellVerb);
    for (const std::string& file : {application, menu, script})
        EXPECT_FALSE(FileExists(file)) << file;
}

} // namespace
