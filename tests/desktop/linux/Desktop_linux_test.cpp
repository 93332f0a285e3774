#include "uBackground.h"
#include "uDesktop.h"
#include "uScreens.h"
#include "uTestSession.h"

#include <X11/Xatom.h>

#include <gtest/gtest.h>

using namespace murala;

namespace
{

TEST(Session, IsToldByNamesBeforeVariables)
{
    using TCase = std::tuple<const char*, const char*, const char*, TSession>;
    const TCase cases[] = {
        {"ubuntu:GNOME", "", "SWAYSOCK", TSession::Gnome},
        {"X-Cinnamon", "", "", TSession::Cinnamon},
        {"nonsense:mate", "xfce", "", TSession::Mate},
        {"", "plasma", "", TSession::Plasma},
        {"", "/usr/share/xsessions/xfce", "", TSession::Xfce},
        {"", "", "SWAYSOCK", TSession::Sway},
        {"", "", "KDE_FULL_SESSION", TSession::Plasma},
        {"::", "openbox", "", TSession::Other},
    };
    for (const auto& [desktop, file, variable, expected] : cases) {
        TTestSession session(desktop);
        session.SetVariable("DESKTOP_SESSION", file);
        if (*variable != '\0')
            session.SetVariable(variable, "1");
        EXPECT_EQ(RunningSession(), expected) << desktop << file << variable;
    }
}

TEST(Colors, HexTexts)
{
    for (const char* text : {"#0c0B0a", "#0c0c0b0b0a0a"})
        EXPECT_EQ(HexTextToColor(text), 0x0A0B0CU);
    for (const char* text : {"", "black", "#12345", "#12345g"})
        EXPECT_FALSE(HexTextToColor(text)) << text;
}

TEST(Screens, WithoutServerThereIsStillASize)
{
    const TTestSession session;
    const auto desktop = NewDesktop(session.Path());
    EXPECT_GT(desktop->ScreenSize().Width, 0);
    EXPECT_GT(desktop->ScreenSize().Height, 0);
    EXPECT_EQ(desktop->ScreenBitsPerPixel(), 32);
    EXPECT_FALSE(Installs(*desktop, session.SavePicture()));
}

bool SamePixels(const TBitmap& a, const TBitmap& b)
{
    return a.Size() == b.Size() &&
           std::equal(a.Row(0), a.Row(0) + a.Width() * a.Height(), b.Row(0));
}

TEST(RootWindow, ShowsThePictureForOthersToFind)
{
    TTestSession session;
    const TTestScreen screen(session, "320x240x24");
    const auto desktop = NewDesktop(session.Path());
    EXPECT_EQ(desktop->ScreenSize(), (TSize{320, 240}));
    const Window root = DefaultRootWindow(screen.Get());
    const TDisplay other = OpenDisplay();
    Pixmap ofOther = XCreatePixmap(other.get(), root, 8, 8, 24);
    XChangeProperty(other.get(), root, XInternAtom(other.get(), "_XROOTPMAP_ID", False), XA_PIXMAP,
                    32, PropModeReplace, reinterpret_cast<unsigned char*>(&ofOther), 1);
    XSync(other.get(), False);
    Pixmap before = None;
    for (const unsigned seed : {0U, 99U}) {
        const TBitmap picture = TestPicture(320, 240, seed);
        ASSERT_TRUE(Installs(*desktop, session.SavePicture(picture)));
        EXPECT_TRUE(SamePixels(screen.Picture(), picture));
        const Pixmap pixmap = ReadProperty32(screen.Get(), root, "_XROOTPMAP_ID", XA_PIXMAP);
        EXPECT_NE(pixmap, None);
        EXPECT_EQ(pixmap, ReadProperty32(screen.Get(), root, "ESETROOT_PMAP_ID", XA_PIXMAP));
        EXPECT_TRUE(screen.Holds(pixmap)) << "it must outlive the connection that made it";
        EXPECT_TRUE(pixmap == before || !screen.Holds(before)) << "the one before is freed";
        before = pixmap;
    }
    EXPECT_TRUE(screen.Holds(ofOther)) << "of a program that runs";
    EXPECT_FALSE(Installs(*desktop, session.File("missing.bmp")));
    EXPECT_FALSE(Installs(*desktop, session.Write("broken.bmp", "BM")));
    EXPECT_TRUE(SamePixels(screen.Picture(), TestPicture(320, 240, 99)));
    session.SetVariable("WAYLAND_DISPLAY", "wayland-0");
    EXPECT_FALSE(Installs(*desktop, session.SavePicture())) << "nobody would see it";
}

// Another program's picture on the root window, as long as this lives.
struct TOtherPicture {
    explicit TOtherPicture(const std::vector<const char*>& properties) : Connection(OpenDisplay())
    {
        const Window root = DefaultRootWindow(Connection.get());
        Picture = XCreatePixmap(Connection.get(), root, 8, 8, 24);
        for (const char* name : properties)
            XChangeProperty(Connection.get(), root, XInternAtom(Connection.get(), name, False),
                            XA_PIXMAP, 32, PropModeReplace,
                            reinterpret_cast<unsigned char*>(&Picture), 1);
        XSync(Connection.get(), False);
    }
    TDisplay Connection;
    Pixmap Picture;
};

TEST(RootWindow, KeepsThePictureAgainstANewWindowManagerAndNotAgainstTheUser)
{
    TTestSession session;
    const TTestScreen screen(session, "64x48x24");
    const Window root = DefaultRootWindow(screen.Get());
    const auto shown = [&] {
        return ReadProperty32(screen.Get(), root, "_XROOTPMAP_ID", XA_PIXMAP);
    };
    screen.SetProperty("_NET_SUPPORTING_WM_CHECK", XA_WINDOW, {root});
    screen.SetProperty("_NET_WM_PID", XA_CARDINAL, {1}); // of the system's first process
    const auto desktop = NewDesktop(session.Path());
    EXPECT_TRUE(Installs(*desktop, session.SavePicture(TestPicture(64, 48))));
    const TOtherPicture users({"_XROOTPMAP_ID"});
    const auto wait = [] {
        for (int i = 0; i < 250; i++, g_usleep(10000))
            g_main_context_iteration(nullptr, FALSE);
    };
    wait();
    screen.SetProperty("_NET_SUPPORTING_WM_CHECK", XA_WINDOW, {root});
    wait();
    EXPECT_EQ(shown(), users.Picture);
    EXPECT_TRUE(Installs(*desktop, session.SavePicture(TestPicture(64, 48))));
    screen.SetProperty("_NET_SUPPORTING_WM_CHECK", XA_WINDOW, {root}); // it has started anew
    Eventually([] { return g_main_context_pending(nullptr) == FALSE; });
    const TOtherPicture managers({"_XROOTPMAP_ID"});
    EXPECT_TRUE(Eventually([&] { return shown() != managers.Picture; }));
    EXPECT_TRUE(SamePixels(screen.Picture(), TestPicture(64, 48)));
}

TEST(RootWindow, APictureOfAnotherSizeIsTakenForOursByItsMarkOnly)
{
    TTestSession session;
    const TTestScreen screen(session, "64x48x24");
    const auto desktop = NewDesktop(session.Path());
    int told = 0;
    const TOtherPicture others({"_XROOTPMAP_ID"});
    desktop->ListenToScreens([&] { told++; });
    EXPECT_EQ(told, 0);
    const TOtherPicture ours({"_XROOTPMAP_ID", "_MURALA_PMAP_ID"});
    desktop->ListenToScreens([&] { told++; });
    EXPECT_EQ(told, 1);
    EXPECT_TRUE(Installs(*desktop, session.SavePicture(TestPicture(64, 48))));
    desktop->ListenToScreens([&] { told++; });
    EXPECT_EQ(told, 1);
}

TEST(RootWindow, EveryMonitorHasThePicture)
{
    TTestSession session;
    const TTestScreen screen(session, "200x100x24");
    // The left one takes over the server's only output, which would otherwise be a third.
    XRRScreenResources* server =
        XRRGetScreenResources(screen.Get(), DefaultRootWindow(screen.Get()));
    screen.SetMonitor("left", {0, 0, 80, 100}, false, server->outputs);
    XRRFreeScreenResources(server);
    screen.SetMonitor("right", {80, 0, 200, 100}, true);
    const auto desktop = NewDesktop(session.Path());
    EXPECT_EQ(desktop->ScreenSize(), (TSize{120, 100})) << "of the primary monitor";
    const TBitmap picture = TestPicture(120, 100);
    ASSERT_TRUE(Installs(*desktop, session.SavePicture(picture)));
    const TBitmap shown = screen.Picture();
    EXPECT_TRUE(std::equal(picture.Row(50) + 20, picture.Row(50) + 100, shown.Row(50)))
        << "the left one has its middle, undistorted";
    EXPECT_TRUE(std::equal(picture.Row(50), picture.Row(50) + 120, shown.Row(50) + 80));
}

TEST(Screens, PictureCoversEachMonitorAndTheColourTheRest)
{
    TBitmap picture(40, 20);
    for (int y = 0; y < 20; y++)
        for (int x = 0; x < 40; x++)
            picture.Row(y)[x] =
                static_cast<TPixel>(x < 20 ? 0xFF0000 : 0x0000FF) + (y < 10 ? 0 : 0x100U);
    TScreens screens;
    screens.Monitors = {{"tall", {0, 0, 10, 20}, false}, {"wide", {10, 10, 90, 20}, true}};
    screens.Whole = {90, 20};
    const TBitmap all = PictureOnMonitors(picture, screens, 0x030201);
    const auto at = [&](int x, int y) { return all.Row(y)[x]; };
    EXPECT_EQ(all.Size(), screens.Whole);
    EXPECT_EQ(at(50, 5), 0x010203U) << "above the wide one";
    for (const auto& [x, left] :
         {std::pair(4, true), std::pair(5, false), std::pair(49, true), std::pair(50, false)}) {
        EXPECT_EQ(at(x, 12) & 0xFF00FFU, left ? 0xFF0000U : 0x0000FFU) << x;
        EXPECT_EQ(at(x, 19) & 0x100U, 0x100U) << x;
    }
}

TEST(Screens, AChangeIsToldOnceAndOnlyWhenSomethingLiesElsewhere)
{
    TTestSession session;
    const TTestScreen screen(session, "200x100x24");
    Display* display = screen.Get();
    const Window root = DefaultRootWindow(display);
    const auto desktop = NewDesktop(session.Path());
    int told = 0;
    desktop->ListenToScreens([&] { told++; });
    XRRScreenResources* resources = XRRGetScreenResources(display, root);
    ASSERT_GT(resources->ncrtc, 0);
    const Atom name = XInternAtom(display, "M", False);
    const auto change = [&](int width, bool isOn) {
        int count = 0;
        XRRMonitorInfo* before = XRRGetMonitors(display, root, True, &count);
        if (count > 0 && before->name == name)
            XRRDeleteMonitor(display, root, name);
        XRRFreeMonitors(before);
        screen.SetMonitor("M", {0, 0, width, 100}, true);
        XRRSetCrtcConfig(display, resources, resources->crtcs[0], CurrentTime, 0, 0,
                         isOn ? resources->modes[0].id : None, RR_Rotate_0, resources->outputs,
                         isOn ? 1 : 0);
        XSync(display, False);
    };
    change(120, false);
    change(150, true);
    change(160, false);
    EXPECT_TRUE(Eventually([&] { return told > 0; }));
    EXPECT_EQ(desktop->ScreenSize(), (TSize{160, 100}));
    change(160, true); // and back again: it is as it was
    change(160, false);
    const gint64 end = g_get_monotonic_time() + 2 * G_USEC_PER_SEC;
    EXPECT_TRUE(Eventually([&] { return g_get_monotonic_time() > end; }));
    EXPECT_EQ(told, 1);
    XRRFreeScreenResources(resources);
}

TEST(RootWindow, ShowsColourWithoutAPictureInOtherPixelFormatsToo)
{
    TTestSession session;
    const TTestScreen screen(session, "64x48x16");
    const auto desktop = NewDesktop(session.Path());
    EXPECT_EQ(desktop->ScreenBitsPerPixel(), 16);
    desktop->ApplyDesktopColor(0x00FF00);
    EXPECT_EQ(screen.Picture().Row(10)[10], 0x7E0U);
    TBitmap picture(64, 48);
    std::fill_n(picture.Row(0), 64 * 48, 0xFF0000U);
    ASSERT_TRUE(Installs(*desktop, session.SavePicture(picture)));
    EXPECT_EQ(screen.Picture().Row(10)[10], 0xF800U);
    desktop->ApplyDesktopColor(0x00FF00);
    EXPECT_EQ(screen.Picture().Row(10)[10], 0xF800U);

    desktop->ApplyDesktopColor(255);
    EXPECT_EQ(NewDesktop(session.Path())->DesktopColor(), 255U);
    const std::string store = ReadWholeFile(session.File("Murala.desktop.ini"));
    EXPECT_NE(store.find("Background=255 0 0"), std::string::npos) << store;
}

} // namespace
