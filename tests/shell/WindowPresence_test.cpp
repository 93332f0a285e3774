#include "uWindowPresence.h"

#include <string>

#include <gtest/gtest.h>

using namespace murala;

namespace
{

// A window manager that does at once what it is asked for, or never.
struct TFakeFrame : TFrame {
    std::string Calls;
    bool IsIconized = false, HasIcons = true, MapsIcons = false;
    TWayBack WayBack{true, false};
    TWindowPresence Presence{*this, [this] { return WayBack; }};

    void ShowFrame() override
    {
        Calls += "show ";
        if (std::exchange(MapsIcons, false))
            Presence.Iconized(IsIconized = false);
        Presence.CameToScreen();
    }
    void HideFrame() override { Calls += "hide "; }
    void IconizeFrame(bool iconize) override
    {
        if (HasIcons && (iconize || IsIconized))
            Calls += iconize ? "iconize " : "deiconize ";
        if (!HasIcons || iconize == IsIconized)
            return;
        IsIconized = iconize;
        Presence.Iconized(iconize);
    }
    bool IsIcon() const override { return IsIconized; }
    void RaiseFrame() override { Calls += "raise "; }
    void PlaceFrame(bool isFirstTime) override { Calls += isFirstTime ? "place1 " : "place "; }
    void Appear() override { Calls += "appear "; }
    void ExplainHiding() override { Calls += "explain "; }
    void WaitToSettle() override { Calls += "wait "; }
    void WaitToHideIcon() override { Calls += "waitIcon "; }
    void CloseLater() override { Calls += "close "; }
    void WakeLater() override { Calls += "wake "; }

    std::string Take() { return std::exchange(Calls, ""); }
    void Start(bool visible)
    {
        Presence.WillStart(visible);
        EXPECT_EQ(Presence.IsVisible(), visible);
        Presence.Start();
    }
    void StartShown()
    {
        Start(true);
        Presence.Settled();
        Take();
    }
};

} // namespace

TEST(WindowPresence, ComesGoesBehindItsTrayIconAndComesBack)
{
    TFakeFrame frame;
    TWindowPresence& presence = frame.Presence;
    frame.Start(true);
    EXPECT_EQ(frame.Take(), "show wait ");
    EXPECT_EQ(presence.Where(), TPresence::Coming);
    presence.Settled();
    EXPECT_EQ(frame.Take(), "place1 ");
    EXPECT_EQ(presence.Where(), TPresence::Shown);
    presence.Minimise();
    presence.Minimise();
    EXPECT_EQ(frame.Take(), "hide explain ");
    EXPECT_FALSE(presence.IsVisible());
    presence.Restore();
    presence.Settled();
    EXPECT_EQ(frame.Take(), "appear show wait raise place ");
    frame.IconizeFrame(true); // by the user
    EXPECT_FALSE(presence.IsVisible());
    presence.HideIcon();
    EXPECT_EQ(frame.Take(), "iconize waitIcon hide explain ");
    presence.Restore();
    EXPECT_EQ(frame.Take(), "appear deiconize show wait raise ")
        << "it is no icon any more when it is shown";
}

TEST(WindowPresence, WithoutAWayBackItIsAnIconAndNeverLost)
{
    TFakeFrame frame;
    frame.StartShown();
    frame.WayBack.IsThere = false;
    frame.Presence.Minimise();
    frame.Presence.HideIcon();
    EXPECT_EQ(frame.Take(), "iconize waitIcon ");
    frame.WayBack.IsThere = true;
    frame.Presence.WayBackChanged();
    EXPECT_EQ(frame.Take(), "hide ");
    frame.WayBack.IsThere = false;
    frame.Presence.WayBackChanged();
    EXPECT_EQ(frame.Presence.Where(), TPresence::Icon);
    EXPECT_EQ(frame.Take(), "iconize show wait ");
    frame.Presence.Restore();
    EXPECT_EQ(frame.Take(), "deiconize appear raise ");
    EXPECT_EQ(frame.Presence.Where(), TPresence::Shown);
}

TEST(WindowPresence, AHiddenStartWaitsForTheAnswerAboutTheTray)
{
    for (const bool isThere : {true, false}) {
        TFakeFrame frame;
        frame.WayBack = {false, true};
        frame.Start(false);
        EXPECT_EQ(frame.Take(), "");
        EXPECT_EQ(frame.Presence.Where(), TPresence::Hidden);
        frame.WayBack = {isThere, false};
        frame.Presence.WayBackChanged();
        EXPECT_EQ(frame.Take(), isThere ? "" : "iconize show wait ");
    }
    // A window manager shows the new icon as a window: it is made an icon again, once.
    TFakeFrame stubborn;
    stubborn.MapsIcons = true;
    stubborn.WayBack.IsThere = false;
    stubborn.Start(false);
    stubborn.Presence.Settled();
    EXPECT_EQ(stubborn.Take(), "iconize show wait iconize wait ");
    stubborn.Presence.Settled();
    EXPECT_EQ(stubborn.Presence.Where(), TPresence::Icon);
    // Another one has no icons: the window is seen.
    TFakeFrame plain;
    plain.HasIcons = plain.WayBack.IsThere = false;
    plain.Start(false);
    for (int i = 0; i < 3; ++i)
        plain.Presence.Settled();
    EXPECT_EQ(plain.Presence.Where(), TPresence::Shown);
    EXPECT_EQ(plain.Take(), "show wait wait appear wait place1 ");
}

TEST(WindowPresence, AnotherCopysFilesAreTakenInWhenNothingIsInTheWay)
{
    TFakeFrame frame;
    EXPECT_FALSE(frame.Presence.Wake(false)) << "the start takes them in";
    frame.StartShown();
    EXPECT_TRUE(frame.Presence.Wake(false));
    EXPECT_FALSE(frame.Presence.Wake(true));
    frame.Presence.PauseEnded();
    frame.Presence.PauseEnded();
    EXPECT_EQ(frame.Take(), "wake ");
    EXPECT_FALSE(frame.Presence.Wake(true));
    EXPECT_FALSE(frame.Presence.Close(true));
    frame.Presence.PauseEnded();
    EXPECT_EQ(frame.Take(), "close ") << "an end comes first";
}

TEST(WindowPresence, ClosesAndEndsInEveryState)
{
    const auto bring = [](TFakeFrame& frame, TPresence where) {
        if (where == TPresence::Starting)
            return;
        frame.Start(where != TPresence::Hidden);
        if (where != TPresence::Coming)
            frame.Presence.Settled();
        if (where == TPresence::Icon)
            frame.IconizeFrame(true);
        ASSERT_EQ(frame.Presence.Where(), where);
        frame.Take();
    };
    for (const TPresence where : {TPresence::Starting, TPresence::Hidden, TPresence::Coming,
                                  TPresence::Shown, TPresence::Icon})
        for (const bool isSession : {false, true}) {
            TFakeFrame frame;
            bring(frame, where);
            const bool wasVisible = frame.Presence.IsVisible();
            if (isSession)
                frame.Presence.EndSession(true);
            else
                EXPECT_FALSE(frame.Presence.Close(true));
            EXPECT_EQ(frame.Presence.Where(), isSession ? TPresence::Going : where);
            EXPECT_EQ(frame.Take(), "");
            frame.Presence.PauseEnded();
            EXPECT_EQ(frame.Take(), "close ");
            EXPECT_TRUE(frame.Presence.Close(false));
            EXPECT_EQ(frame.Presence.Where(), TPresence::Going);
            EXPECT_EQ(frame.Presence.IsVisible(), wasVisible) << "the next start is as this one";
            frame.Presence.Start();
            frame.Presence.Restore();
            frame.Presence.Minimise();
            frame.Presence.Settled();
            frame.Presence.HideIcon();
            frame.WayBack.IsThere = false;
            frame.Presence.WayBackChanged();
            EXPECT_EQ(frame.Take(), "") << "nothing brings it back";
        }
}
