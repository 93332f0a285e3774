#include "uEffects.h"

#include "uDesktopFakes.h"
#include "uFileSearch.h"

#include <gtest/gtest.h>

using namespace murala;

namespace
{

struct TEffectsWorld {
    TFakeLauncher Launcher;
    TFakeSiblings Siblings;
    TFakeMessageLoop Loop;
    TEffects Effects{"/none/", Launcher, Siblings, Loop};
};

TEST(Effects, ArePassedTheQuotedPictureAndSucceedFrom32On)
{
    TEffectsWorld world;
    EXPECT_EQ(world.Effects.RunEffect("Snow", "/a b/c.jpg"), TEffectStart::Done);
    EXPECT_EQ(world.Effects.RunEffectSettings("Snow", "/a b/c.jpg"), TEffectStart::Done);
    const std::string call = ProgramFileName("Snow") + " \"/a b/c.jpg\"";
    EXPECT_EQ(world.Launcher.Started, (std::vector<std::string>{call, call + " /settings"}));
    EXPECT_EQ(world.Loop.Time, 2000) << "a second after each";
    world.Launcher.Result = 31;
    EXPECT_EQ(world.Effects.RunEffect("Snow", "/c.jpg"), TEffectStart::NotLaunched);
    EXPECT_EQ(world.Effects.LaunchEffect("Snow", "/c.jpg", false), 0U);
    EXPECT_EQ(world.Loop.Time, 2000);
    world.Launcher.Result = FirstShellSuccess;
    world.Launcher.Started.clear();
    for (const char* name : {"../Snow", "/bin/rm", "a\\b", "C:x"})
        EXPECT_EQ(world.Effects.RunEffect(name, "/c.jpg"), TEffectStart::NotLaunched) << name;
    EXPECT_TRUE(world.Launcher.Started.empty());
    EXPECT_TRUE(world.Effects.ListEffects().empty()) << "of a folder that is missing";
}

TEST(Effects, RunningRovaneIsClosedFirstOrGivenUpAfterFiveSeconds)
{
    TEffectsWorld world;
    world.Siblings.RovaneRuns = true;
    EXPECT_EQ(world.Effects.RunEffect("Snow", "/c.jpg"), TEffectStart::Done);
    EXPECT_TRUE(world.Siblings.RovaneRuns) << "it is in nobody's way";
    EXPECT_EQ(world.Effects.RunEffect("roVANE", "/c.jpg"), TEffectStart::Done);
    EXPECT_FALSE(world.Siblings.RovaneRuns);
    EXPECT_EQ(world.Launcher.Started.size(), 2U);

    world.Siblings.RovaneRuns = true;
    world.Siblings.RovaneCloses = false;
    world.Loop.Time = 0;
    EXPECT_EQ(world.Effects.RunEffect("Rovane", "/c.jpg"), TEffectStart::RovaneRunning);
    EXPECT_EQ(world.Loop.Time, 5000);
    EXPECT_EQ(world.Launcher.Started.size(), 2U);
}

TEST(Effects, NoEffectHasTwoNames)
{
    for (const char* name : {"", "(None)", "(nONE)", "None", "Rovane"})
        EXPECT_EQ(IsNoEffect(name), *name == '\0' || *name == '(') << name;
}

} // namespace
