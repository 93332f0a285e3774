#include "MuralaFixture.h"

using namespace murala;

using SessionEntry = TMuralaFixture;

TEST_F(SessionEntry, TheRunValueFollowsTheStartSettings)
{
    const auto command = [this] {
        const auto& commands = m_services.Autostart.Commands;
        return commands.empty() ? std::string() : commands.begin()->second;
    };
    const std::string program = m_services.ProgramFolder + "murala";
    m_murala->Session.SetApplyOnStartup(true);
    EXPECT_EQ(command(), "");
    m_murala->Session.SetStartAtStartup(true);
    EXPECT_EQ(command(), program + " /apply");
    m_murala->Session.SetApplyOnStartup(false);
    EXPECT_EQ(command(), program);
    m_services.Autostart.Commands.begin()->second = "/old/place/murala";
    Restart();
    EXPECT_TRUE(m_murala->Session.StartAtStartup());
    EXPECT_EQ(command(), program) << "the program was moved";
    m_services.Autostart.IsForTheMachine = true;
    m_murala->Session.SetStartAtStartup(false);
    EXPECT_TRUE(m_murala->Session.StartAtStartup()) << "what is true afterwards";
    m_services.Autostart.IsForTheMachine = false;
    m_murala->Session.SetStartAtStartup(false);
    EXPECT_EQ(command(), "");
    Restart();
    EXPECT_FALSE(m_murala->Session.StartAtStartup());
    EXPECT_EQ(command(), "") << "an entry that is not there is not made";
}

TEST_F(SessionEntry, TheFileMenuShowsWhatWasReallyDone)
{
    m_services.FileMenu.Refuses = true;
    m_murala->Session.SetShellIntegration(true);
    EXPECT_FALSE(m_murala->Session.IsShellIntegrated());
    m_services.FileMenu.Refuses = false;
    m_murala->Session.SetShellIntegration(true);
    EXPECT_TRUE(m_murala->Session.IsShellIntegrated());
    m_view.Messages.clear();
    m_murala->Session.SetShellIntegration(false);
    EXPECT_FALSE(m_murala->Session.IsShellIntegrated());
    EXPECT_TRUE(m_view.Messages.empty());
}

TEST_F(SessionEntry, QueuedFilesAreTakenInAlsoThoseThatComeMeanwhile)
{
    for (int i = 0; i < 3; ++i)
        m_services.FileQueue.QueueFiles({Picture("Q" + std::to_string(i) + ".bmp")});
    struct TLateFile : TListener {
        std::function<void()> OnRows;
        void RowsChanged() override
        {
            std::exchange(OnRows, [] {})();
        }
    } late;
    late.OnRows = [&] { m_services.FileQueue.QueueFiles({Picture("Late.bmp")}); };
    TSubscription subscription = m_murala->Core.Listeners.Listen(late);
    m_murala->Session.ImportQueuedFiles();
    subscription.reset();
    EXPECT_EQ(m_murala->Core.List.Count(), 4);
    EXPECT_TRUE(m_services.FileQueue.Names.empty());
    EXPECT_EQ(m_view.Disabled, 0);
}

TEST_F(SessionEntry, WhatTheEndOfTheSessionCutsShortWaitsForTheNextStart)
{
    const std::vector<std::string> files = {Picture("A.bmp"), Picture("B.bmp")};
    m_services.FileQueue.QueueFiles(files);
    m_murala->Core.IsSilent = true;
    m_murala->Session.ImportQueuedFiles();
    EXPECT_EQ(m_services.FileQueue.Names, files);
}
