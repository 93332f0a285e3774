#include "uProgramEntry.h"

#include "uDesktopFakes.h"
#include "uSafeFile.h"
#include "uShellIntegration.h"
#include "uTempFolder.h"
#include "uVersion.h"

#include <gtest/gtest.h>

using namespace murala;

namespace
{

using TWords = std::vector<std::string>;

// Every call, in its order; which answers come is a test's.
struct TFakeLink : TInstanceLink {
    std::deque<bool> Running; // the last one stays
    std::deque<bool> Woken;
    TWords* Calls = nullptr;

    bool IsRunning() override
    {
        Calls->push_back("find");
        return Take(Running);
    }
    bool PostWake() override
    {
        Calls->push_back("wake");
        return Take(Woken);
    }
    void Lock() override { Calls->push_back("lock"); }
    void Unlock() override { Calls->push_back("unlock"); }
    void Listen(void*, std::function<void()>) override { Calls->push_back("listen"); }

private:
    static bool Take(std::deque<bool>& answers)
    {
        const bool answer = answers.front();
        if (answers.size() > 1)
            answers.pop_front();
        return answer;
    }
};

struct TLoggedQueue : TFakeFileQueue {
    TWords* Calls = nullptr;
    bool QueueFiles(const TWords& names) override
    {
        Calls->push_back("queue");
        return TFakeFileQueue::QueueFiles(names);
    }
};

struct TEntryWorld {
    TFakeFileMenu Menu;
    TLoggedQueue Queue;
    TFakeLink Link;
    TWords Calls;

    TEntryWorld()
    {
        Queue.Calls = Link.Calls = &Calls;
        SetShellIntegration(Menu, true);
    }
    TEntry Enter(const TWords& arguments) { return EnterProgram(arguments, Menu, Queue, Link); }
};

TEST(ProgramEntry, FilesAreQueuedThenTheLockIsWaitedForThenACopyIsLookedForAgain)
{
    struct TCase {
        const char* Name;
        std::deque<bool> Running, Woken;
        TEntry Entry;
        TWords Calls;
    };
    const TCase cases[] = {
        {"alone", {false}, {false}, TEntry::Run, {"queue", "find", "lock", "find"}},
        {"second", {true}, {true}, TEntry::End, {"queue", "find", "find", "unlock", "wake"}},
        {"at the same time",
         {false, true},
         {true},
         TEntry::End,
         {"queue", "find", "lock", "find", "unlock", "wake"}},
        {"the first ends before it is woken",
         {true, true, false},
         {false},
         TEntry::Run,
         {"queue", "find", "find", "unlock", "wake", "find", "lock", "find"}},
    };
    const TTempFolder folder;
    const std::string file = folder.Write("a.bmp", "x");
    for (const TCase& each : cases) {
        TEntryWorld world;
        world.Link.Running = each.Running;
        world.Link.Woken = each.Woken;
        EXPECT_EQ(world.Enter({"/apply", file}), each.Entry) << each.Name;
        EXPECT_EQ(world.Calls, each.Calls) << each.Name;
        EXPECT_EQ(world.Queue.Names, TWords{file}) << each.Name;
        EXPECT_TRUE(IsShellIntegrated(world.Menu));
    }
}

TEST(ProgramEntry, HandOffThatLosesFilesFails)
{
    const TTempFolder folder;
    TEntryWorld world;
    world.Link.Running = world.Link.Woken = {true};
    world.Queue.Refuses = true;
    EXPECT_EQ(world.Enter({folder.Write("a.bmp", "x")}), TEntry::Failed);
    EXPECT_EQ(world.Enter({"/apply"}), TEntry::End) << "there was nothing to queue";
}

TEST(ProgramEntry, UninstallIsTheOnlyArgumentInItsLetterCase)
{
    for (const TWords& arguments :
         {TWords{"/uninstall"}, TWords{"/UNINSTALL", "x"}, TWords{"x", "/UNINSTALL"}, TWords{}}) {
        TEntryWorld world;
        world.Link.Running = {false};
        EXPECT_EQ(world.Enter(arguments), TEntry::Run);
        EXPECT_TRUE(IsShellIntegrated(world.Menu));
    }
    TEntryWorld world;
    EXPECT_EQ(world.Enter({"/UNINSTALL"}), TEntry::End);
    EXPECT_FALSE(IsShellIntegrated(world.Menu));
    EXPECT_TRUE(world.Calls.empty()) << "no other copy is looked for";

    TEntryWorld refused;
    refused.Menu.Refuses = true;
    EXPECT_EQ(refused.Enter({"/UNINSTALL"}), TEntry::Failed);
}

TEST(ProgramEntry, VersionAndHelpAreAnsweredAsTheOnlyArgument)
{
    for (const TWords& arguments :
         {TWords{}, TWords{"--version", "--help"}, TWords{"a.jpg", "--version"},
          TWords{"--version", "a.jpg"}, TWords{"--Version"}, TWords{"-help"}, TWords{"/apply"},
          TWords{"/UNINSTALL"}})
        EXPECT_EQ(AnswerBeforeEntry(arguments), std::nullopt) << arguments.size();
    EXPECT_EQ(AnswerBeforeEntry({"--version"}), "Murala " + std::string(Version) + "\n");
    const std::string help = AnswerBeforeEntry({"--help"}).value();
    for (const char* argument : {"FILE", "/apply", "/UNINSTALL", "--help", "--version"})
        EXPECT_NE(help.find(argument), std::string::npos) << argument;
}

TEST(ProgramEntry, ApplyIsTheFirstArgumentInAnyLetterCase)
{
    for (const TWords& arguments : {TWords{"/apply"}, TWords{"/APPLY", "x"}})
        EXPECT_TRUE(IsApplyStart(arguments));
    for (const TWords& arguments : {TWords{}, TWords{"x", "/apply"}, TWords{"apply"}})
        EXPECT_FALSE(IsApplyStart(arguments));
}

} // namespace
