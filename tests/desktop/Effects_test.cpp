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

TEST(Effects, PictureIsQuotedAndSettingsFollow)
{
    TEffectsWorld world;
    EXPECT_EQ(world.Effects.RunEffect("Snow", "/a b/c.jpg"), TEffectStart::Done);
    EXPECT_EQ(world.Effects.RunEffectSettings("Snow", "/a b/c.jpg"), TEffectStart::Done);
    const std::string program = ProgramFileName("Snow");
    EXPECT_EQ(world.Launcher.Started,
              (std::vector<std::string>{program + " \"/a b/c.jpg\"",
                                        program + " \"/a b/c.jpg\" /settings"}));
    EXPECT_EQ(world.Loop.Time, 2000) << "a second after each";
}

TEST(Effects, From32OnTheShellsResultIsASuccess)
{
    TEffectsWorld world;
    for (const TShellResult result : {TShellResult{0}, TShellResult{31}}) {
        world.Launcher.Result = result;
        EXPECT_EQ(world.Effects.RunEffect("Snow", "/c.jpg"), TEffectStart::NotLaunched);
        EXPECT_EQ(world.Effects.LaunchEffect("Snow", "/c.jpg", false), 0U);
    }
    EXPECT_EQ(world.Loop.Time, 0);
    world.Launcher.Result = 32;
    EXPECT_EQ(world.Effects.LaunchEffect("Snow", "/c.jpg", false), 32U);
}

TEST(Effects, RunningRovaneIsClosedFirst)
{
    TEffectsWorld world;
    world.Siblings.RovaneRuns = true;
    EXPECT_EQ(world.Effects.RunEffect("Snow", "/c.jpg"), TEffectStart::Done);
    EXPECT_TRUE(world.Siblings.RovaneRuns) << "it is in nobody's way";
    EXPECT_EQ(world.Effects.RunEffect("roVANE", "/c.jpg"), TEffectStart::Done);
    EXPECT_FALSE(world.Siblings.RovaneRuns);
    EXPECT_EQ(world.Launcher.Started.size(), 2U);
}

TEST(Effects, RovaneThatDoesNotCloseIsGivenUpAfterFiveSeconds)
{
    TEffectsWorld world;
    world.Siblings.RovaneRuns = true;
    world.Siblings.RovaneCloses = false;
    EXPECT_EQ(world.Effects.RunEffect("Rovane", "/c.jpg"), TEffectStart::RovaneRunning);
    EXPECT_EQ(world.Loop.Time, 5000);
    EXPECT_TRUE(world.Launcher.Started.empty());
}

TEST(Effects, NoEffectHasTwoNames)
{
    for (const char* name : {"", "(None)", "(nONE)"})
        EXPECT_TRUE(IsNoEffect(name)) << name;
    for (const char* name : {"None", " ", "Rovane"})
        EXPECT_FALSE(IsNoEffect(name)) << name;
}

TEST(Effects, MissingFolderHoldsNoEffects)
{
    TEffectsWorld world;
    EXPECT_TRUE(world.Effects.ListEffects().empty());
}

} // namespace
