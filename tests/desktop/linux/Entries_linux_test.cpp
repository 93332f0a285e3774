// What Murala leaves in the user's folders: the queue, the autostart entry, the file menus.
#include "uAutostart.h"
#include "uDesktopEntry.h"
#include "uFileMenu.h"
#include "uFileQueue.h"
#include "uTestSession.h"

#include <gio/gdesktopappinfo.h>
#include <gtest/gtest.h>

#include <sys/wait.h>

using namespace murala;

namespace
{

bool IsValidEntry(const std::string& file)
{
    return RunProgram({"desktop-file-validate", file});
}

TGObject<GAppInfo> LoadProgram(const std::string& file)
{
    return TGObject<GAppInfo>(G_APP_INFO(g_desktop_app_info_new_from_filename(file.c_str())));
}

TEST(LinuxFileQueue, TakesNamesOfEveryKindOnce)
{
    const TTestSession session;
    const auto queue = NewFileQueue();
    EXPECT_TRUE(queue->TakeQueuedFiles().empty());
    const TWords names = {"/a=b;c.jpg", "/A=b;c.jpg", "/tab\tline\nback\\n.bmp",
                          "/[x] ü \xFF\".jpg", " /blank "};
    EXPECT_TRUE(queue->QueueFiles({names[0], names[1], names[0]}));
    EXPECT_TRUE(queue->QueueFiles({names[1], names[2], names[3], names[4]}));
    EXPECT_EQ(NewFileQueue()->TakeQueuedFiles(), names);
    EXPECT_TRUE(queue->TakeQueuedFiles().empty());
}

TEST(LinuxFileQueue, FolderThatCannotBeMadeRefuses)
{
    const TTestSession session;
    session.Write(".local", "a file");
    EXPECT_FALSE(NewFileQueue()->QueueFiles({"b"}));
    EXPECT_TRUE(NewFileQueue()->TakeQueuedFiles().empty());
}

TEST(LinuxFileQueue, ProcessesThatWriteAtTheSameTimeLoseNothing)
{
    const TTestSession session;
    std::vector<pid_t> processes;
    for (int process = 0; process < 4; process++) {
        processes.push_back(fork());
        if (processes.back() != 0)
            continue;
        for (int i = 0; i < 25; i++)
            NewFileQueue()->QueueFiles({std::to_string(process * 25 + i)});
        _exit(0);
    }
    for (const pid_t process : processes)
        waitpid(process, nullptr, 0);
    EXPECT_EQ(NewFileQueue()->TakeQueuedFiles().size(), 100U);
}

TEST(Autostart, EntryStartsTheCommandAndStaysAsTheUserSwitchedIt)
{
    TTestSession session;
    session.AddRecorder("my $murala");
    const std::string command = session.File("bin/my $murala") + " /apply";
    const std::string file = session.File(".config/autostart/murala.desktop");
    const auto autostart = NewAutostart();
    EXPECT_FALSE(autostart->RunValueExists("Murala"));
    autostart->SetRunValue("Murala", command);
    EXPECT_TRUE(autostart->RunValueExists("Murala"));
    EXPECT_TRUE(IsValidEntry(file));
    ASSERT_TRUE(g_app_info_launch(LoadProgram(file).get(), nullptr, nullptr, nullptr));
    EXPECT_EQ(session.Recorded(), (TWords{"my $murala", "/apply"}));

    for (const auto& [key, text] :
         {std::pair("Hidden", "true"), std::pair("X-GNOME-Autostart-enabled", "false")}) {
        TDesktopEntry entry(file);
        entry.Write(key, text);
        ASSERT_TRUE(entry.Save());
        EXPECT_FALSE(autostart->RunValueExists("Murala")) << key;
        autostart->DeleteRunValue("Murala");
        EXPECT_TRUE(FileExists(file)) << "switched off, not removed";
        autostart->SetRunValue("Murala", command);
        EXPECT_TRUE(autostart->RunValueExists("Murala"));
    }
    std::filesystem::remove(NativePath(session.File("bin/my $murala")));
    EXPECT_FALSE(LoadProgram(file)) << "sessions pass over the entry of a program that was removed";
    autostart->DeleteRunValue("Murala");
    EXPECT_FALSE(FileExists(file));
}

TEST(FileMenu, EveryFormNamesItsTypesAndNoneOpensThem)
{
    TTestSession session;
    session.AddRecorder("my $murala");
    const TFileCommand command{"Add to Murala", {".bmp", ".jpg"}, session.File("bin/my $murala")};
    const auto menu = NewFileMenu();
    EXPECT_FALSE(menu->ShellCommandExists(command));
    menu->AddShellCommand(command);
    EXPECT_TRUE(menu->ShellCommandExists(command));
    const std::string data = session.File(".local/share/");
    const std::string serviceMenu = data + "kio/servicemenus/murala-add.desktop";
    const std::string sendTo = data + "Thunar/sendto/murala-add.desktop";
    const std::string action = data + "file-manager/actions/murala-add.desktop";
    const std::string nemo = data + "nemo/actions/murala-add.nemo_action";
    const std::string script = data + "nautilus/scripts/Add to Murala";
    const std::string caja = session.File(".config/caja/scripts/Add to Murala");
    for (const std::string& file : {serviceMenu, sendTo, action, nemo})
        EXPECT_NE(ReadWholeFile(file).find("=image/bmp;image/jpeg;"), std::string::npos) << file;
    EXPECT_TRUE(IsValidEntry(sendTo));
    EXPECT_TRUE(IsValidEntry(serviceMenu));
    EXPECT_EQ(access(serviceMenu.c_str(), X_OK), 0);
    EXPECT_FALSE(std::filesystem::exists(data + "applications"))
        << "an application for the types could become what opens them";
    EXPECT_FALSE(FileExists(session.File(".config/mimeapps.list")));

    TWords pictures;
    for (const char* name : {"a b.bmp", "ü'.JPG", "c.jpeg", "notes.txt", "bmp"})
        pictures.push_back(session.Write(name, "x"));
    const TWords expected = {"my $murala", pictures[0], pictures[1], pictures[2]};
    for (const std::string& file : {script, caja}) {
        ASSERT_TRUE(RunProgram({file, pictures[0], session.Path(), pictures[3], pictures[1],
                                pictures[4], pictures[2], session.File("missing.bmp"), "."}));
        EXPECT_EQ(session.Recorded(), expected);
        ASSERT_TRUE(RunProgram({file, pictures[3]}));
        EXPECT_FALSE(FileExists(session.File("recorded"))) << "nothing to add";
    }
    // Caja cuts its arguments.
    const std::string percent = session.Write("100%f *.jpg", "x");
    session.SetVariable("CAJA_SCRIPT_SELECTED_FILE_PATHS", percent + "\n" + pictures[0] + "\n");
    ASSERT_TRUE(RunProgram({caja, session.File("100 *.jpg"), pictures[0]}));
    EXPECT_EQ(session.Recorded(), (TWords{"my $murala", percent, pictures[0]}));
    const TGObject<GFile> first(g_file_new_for_path(pictures[0].c_str()));
    GList files{first.get(), nullptr, nullptr};
    ASSERT_TRUE(g_app_info_launch(LoadProgram(sendTo).get(), &files, nullptr, nullptr));
    EXPECT_EQ(session.Recorded(), (TWords{"my $murala", pictures[0]}));

    menu->RemoveShellCommand(command);
    EXPECT_FALSE(menu->ShellCommandExists(command));
    for (const std::string& file : {serviceMenu, sendTo, action, nemo, script, caja})
        EXPECT_FALSE(FileExists(file)) << file;
}

} // namespace
