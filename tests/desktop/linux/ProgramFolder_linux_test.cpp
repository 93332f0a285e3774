#include "uProgramFolder.h"
#include "uSettings.h"
#include "uTestSession.h"
#include "uWallpaper.h"

#include <iostream>

#include <sys/wait.h>
#include <unistd.h>

using namespace murala;

namespace
{

TEST(LinuxProgramFolder, IsTheUsersAndIsMade)
{
    TTestSession session;
    session.SetVariable("XDG_DATA_HOME", "relative");
    EXPECT_EQ(ProgramFolder(), session.File(".local/share/murala/")) << "no base for it";
    session.SetVariable("XDG_DATA_HOME", session.File("data"));
    EXPECT_EQ(ProgramFolder(), session.File("data/murala/"));
    EXPECT_TRUE(std::filesystem::is_directory(session.File("data/murala")));
}

// Runs the check in a process that has no more rights than anybody.
bool AsNobody(const std::function<bool()>& check)
{
    constexpr uid_t nobody = 65534;
    const pid_t child = fork();
    if (child == 0) {
        try {
            const bool isNobody = geteuid() != 0 || setuid(nobody) == 0;
            _exit(isNobody && check() ? 0 : 1);
        } catch (const std::exception& error) {
            std::cerr << error.what() << std::endl;
            _exit(2);
        }
    }
    int status = -1;
    return waitpid(child, &status, 0) == child && status == 0;
}

TEST(LinuxProgramFolder, WhereTheProgramsMayOnlyBeReadTheLibraryIsCopiedOnce)
{
    using std::filesystem::perms;
    const TTempFolder folder;
    const std::string beside = folder.File("program") + "/",
                      user = folder.File("user/murala") + "/";
    std::filesystem::create_directories(beside);
    std::filesystem::create_directories(folder.File("user"));
    std::filesystem::permissions(folder.File("user"), perms::all);
    for (const std::string_view name : {SettingsFileName, ListFileName}) {
        ReplaceWholeFile(JoinPath(beside, name), "prepared", TFlush::ToSystemCache);
        std::filesystem::permissions(JoinPath(beside, name), perms{0644});
    }
    EXPECT_EQ(ChooseProgramFolder(beside, user), beside);
    EXPECT_FALSE(std::filesystem::exists(user));

    std::filesystem::permissions(beside, perms{0555});
    const auto list = [&] { return ReadWholeFile(user + std::string(ListFileName)); };
    EXPECT_TRUE(AsNobody([&] {
        return ChooseProgramFolder(beside, user) == user && list() == "prepared" &&
               FileExists(user + std::string(SettingsFileName));
    }));
    EXPECT_TRUE(AsNobody([&] {
        ReplaceWholeFile(user + std::string(ListFileName), "mine", TFlush::ToSystemCache);
        return ChooseProgramFolder(beside, user) == user && list() == "mine";
    }));
    EXPECT_TRUE(AsNobody([&] { return ChooseProgramFolder("", user) == user; }));
    std::filesystem::permissions(beside, perms::owner_all);
}

} // namespace
