#include "uBackground.h"
#include "uDesktop.h"
#include "uSafeFile.h"
#include "uScreens.h"
#include "uTestSession.h"

#include <X11/Xatom.h>
#include <X11/extensions/Xrandr.h>

#include <gtest/gtest.h>

using namespace murala;

namespace
{

constexpr const char* AwkwardName = "a b'ü%20\"$(x).bmp";

TEST(Session, IsToldByNamesBeforeVariables)
{
    struct TCase {
        const char* Current;
        const char* Session;
        const char* Variable;
        TSession Expected;
    };
    const TCase cases[] = {
        {"ubuntu:GNOME", "", "", TSession::Gnome},
        {"Unity:Unity7:ubuntu", "", "", TSession::Gnome},
        {"Budgie:GNOME", "", "SWAYSOCK", TSession::Gnome},
        {"X-Cinnamon", "", "", TSession::Cinnamon},
        {"nonsense:MATE", "xfce", "", TSession::Mate},
        {"KDE", "", "", TSession::Plasma},
        {"", "plasma", "", TSession::Plasma},
        {"XFCE", "", "", TSession::Xfce},
        {"", "/usr/share/xsessions/xfce", "", TSession::Xfce},
        {"LXDE", "", "", TSession::Lxde},
        {"LXQt", "", "", TSession::Lxqt},
        {"sway", "", "", TSession::Sway},
        {"", "", "SWAYSOCK", TSession::Sway},
        {"", "", "KDE_FULL_SESSION", TSession::Plasma},
        {"", "", "", TSession::Other},
        {"::", "openbox", "", TSession::Other},
    };
    for (const TCase& each : cases) {
        TTestSession session;
        session.SetVariable("XDG_CURRENT_DESKTOP", each.Current);
        session.SetVariable("DESKTOP_SESSION", each.Session);
        if (*each.Variable != '\0')
            session.SetVariable(each.Variable, "1");
        EXPECT_EQ(RunningSession(), each.Expected) << each.Current << each.Session << each.Variable;
    }
}

TEST(Colors, HexTexts)
{
    EXPECT_EQ(ColorToHexText(0x0A0B0C), "#0c0b0a");
    EXPECT_EQ(HexTextToColor("#0c0B0a"), 0x0A0B0CU);
    EXPECT_EQ(HexTextToColor("#0c0c0b0b0a0a"), 0x0A0B0CU);
    for (const char* text : {"", "black", "#12345", "#12345g", "rgb(1,2,3)"})
        EXPECT_FALSE(HexTextToColor(text)) << text;
}

TEST(Screens, WithoutServerThereIsStillASize)
{
    TTestSession session;
    const auto desktop = NewDesktop(session.ProgramFolder());
    EXPECT_GT(desktop->ScreenSize().Width, 0);
    EXPECT_GT(desktop->ScreenSize().Height, 0);
    EXPECT_EQ(desktop->ScreenBitsPerPixel(), 32);
    const auto picture = SaveTestPicture(TestPicture(4, 4), session.File("p.bmp"));
    EXPECT_FALSE(desktop->SetWallpaperFile(picture));
}

TEST(RootWindow, ShowsThePictureForOthersToFind)
{
    TTestSession session;
    TTestScreen screen(session, "320x240x24");
    const auto desktop = NewDesktop(session.ProgramFolder());
    EXPECT_EQ(desktop->ScreenSize(), (TSize{320, 240}));
    Pixmap before = None;
    for (const unsigned seed : {0U, 99U}) {
        const TBitmap picture = TestPicture(320, 240, seed);
        ASSERT_TRUE(desktop->SetWallpaperFile(SaveTestPicture(picture, session.File(AwkwardName))));
        EXPECT_TRUE(screen.Shows(picture));
        const Window root = DefaultRootWindow(screen.Get());
        const Pixmap pixmap = ReadProperty32(screen.Get(), root, "_XROOTPMAP_ID", XA_PIXMAP);
        EXPECT_NE(pixmap, None);
        EXPECT_EQ(pixmap, ReadProperty32(screen.Get(), root, "ESETROOT_PMAP_ID", XA_PIXMAP));
        EXPECT_TRUE(screen.Holds(pixmap)) << "it must outlive the connection that made it";
        EXPECT_TRUE(pixmap == before || !screen.Holds(before)) << "the one before is freed";
        before = pixmap;
    }
    EXPECT_FALSE(desktop->SetWallpaperFile(session.File("missing.bmp")));
    ReplaceWholeFile(session.File("broken.bmp"), "BM", TFlush::ToSystemCache);
    EXPECT_FALSE(desktop->SetWallpaperFile(session.File("broken.bmp")));
    EXPECT_TRUE(screen.Shows(TestPicture(320, 240, 99)));
    session.SetVariable("WAYLAND_DISPLAY", "wayland-0");
    EXPECT_FALSE(desktop->SetWallpaperFile(session.File(AwkwardName))) << "nobody would see it";
}

TEST(RootWindow, LeavesTheProgramThatSetTheRootAlive)
{
    TTestSession session;
    TTestScreen screen(session, "64x48x24");
    const TDisplay other = OpenDisplay();
    const Window root = DefaultRootWindow(other.get());
    Pixmap pixmap = XCreatePixmap(other.get(), root, 8, 8, 24);
    XChangeProperty(other.get(), root, XInternAtom(other.get(), "_XROOTPMAP_ID", False), XA_PIXMAP,
                    32, PropModeReplace, reinterpret_cast<unsigned char*>(&pixmap), 1);
    XSync(other.get(), False);
    const TBitmap picture = TestPicture(64, 48);
    ASSERT_TRUE(NewDesktop(session.ProgramFolder())
                    ->SetWallpaperFile(SaveTestPicture(picture, session.File("p.bmp"))));
    EXPECT_TRUE(screen.Holds(pixmap));
}

// Two monitors, the second of which is the primary one. The first takes over the server's only
// output, which would otherwise count as a third.
void SplitScreen(Display* display, const TRect& first, const TRect& second)
{
    const Window root = DefaultRootWindow(display);
    XRRScreenResources* resources = XRRGetScreenResources(display, root);
    for (const TRect& place : {first, second}) {
        const bool isFirst = place.Left == first.Left;
        XRRMonitorInfo* monitor = XRRAllocateMonitor(display, isFirst ? 1 : 0);
        if (isFirst)
            monitor->outputs[0] = resources->outputs[0];
        monitor->name = XInternAtom(display, isFirst ? "first" : "second", False);
        monitor->primary = isFirst ? False : True;
        monitor->x = place.Left;
        monitor->y = place.Top;
        monitor->width = place.Width();
        monitor->height = place.Height();
        monitor->mwidth = monitor->mheight = 100;
        XRRSetMonitor(display, root, monitor);
        XRRFreeMonitors(monitor);
    }
    XRRFreeScreenResources(resources);
    XSync(display, False);
}

TEST(RootWindow, EveryMonitorHasThePicture)
{
    TTestSession session;
    TTestScreen screen(session, "200x100x24");
    SplitScreen(screen.Get(), {0, 0, 80, 100}, {80, 0, 200, 100});
    const auto desktop = NewDesktop(session.ProgramFolder());
    EXPECT_EQ(desktop->ScreenSize(), (TSize{120, 100})) << "of the primary monitor";
    const TBitmap picture = TestPicture(120, 100);
    ASSERT_TRUE(desktop->SetWallpaperFile(SaveTestPicture(picture, session.File("p.bmp"))));
    const TBitmap shown = screen.Picture();
    EXPECT_EQ(shown.Row(0)[0], picture.Row(0)[0]) << "the left one, with the picture made narrower";
    EXPECT_TRUE(std::equal(picture.Row(50), picture.Row(50) + 120, shown.Row(50) + 80));
}

TEST(RootWindow, OtherPixelFormatsAreConverted)
{
    TTestSession session;
    TTestScreen screen(session, "64x48x16");
    EXPECT_EQ(NewDesktop(session.ProgramFolder())->ScreenBitsPerPixel(), 16);
    TBitmap picture(64, 48);
    std::fill_n(picture.Row(0), 64 * 48, 0xFF0000U);
    const auto desktop = NewDesktop(session.ProgramFolder());
    ASSERT_TRUE(desktop->SetWallpaperFile(SaveTestPicture(picture, session.File("p.bmp"))));
    EXPECT_EQ(screen.Picture().Row(10)[10], 0xF800U);
}

TEST(RootWindow, ColourShowsWhileThereIsNoPicture)
{
    TTestSession session;
    TTestScreen screen(session, "64x48x24");
    const auto desktop = NewDesktop(session.ProgramFolder());
    desktop->SetDesktopColor(0x0000FF);
    EXPECT_EQ(screen.Picture().Row(10)[10], 0xFF0000U);
    desktop->StoreDesktopColorText("255 0 0");
    desktop->StoreTileFlag("0");
    EXPECT_EQ(NewDesktop(session.ProgramFolder())->DesktopColor(), 255U);
    const std::string store = ReadWholeFile(session.File("Murala.desktop.ini"));
    EXPECT_NE(store.find("[Control Panel\\desktop]"), std::string::npos);
    EXPECT_NE(store.find("TileWallpaper=0"), std::string::npos);
    EXPECT_NE(store.find("Background=255 0 0"), std::string::npos);
}

} // namespace
