#include "uBackground.h"
#include "uDesktop.h"
#include "uTestSession.h"
#include "uText.h"

#include <gtest/gtest.h>

using namespace murala;

namespace
{

std::string ReadSetting(const char* key)
{
    const TGObject<GSettings> settings(g_settings_new("org.gnome.desktop.background"));
    return TGText(g_settings_get_string(settings.get(), key)).get();
}

TEST(GnomeBackground, SettingsNameThePictureAndItsTwinInTurn)
{
    TTestSession session("GNOME");
    session.SetVariable("GSETTINGS_BACKEND", "keyfile");
    const auto desktop = NewDesktop(session.Path());
    const std::string picture = session.SavePicture();
    ASSERT_TRUE(Installs(*desktop, picture));
    EXPECT_EQ(UriFile(ReadSetting("picture-uri")), picture);
    EXPECT_EQ(UriFile(ReadSetting("picture-uri-dark")), picture);
    EXPECT_EQ(ReadSetting("picture-options"), "zoom");

    session.SavePicture(TestPicture(8, 8, 1));
    ASSERT_TRUE(Installs(*desktop, picture));
    const std::string twin = UriFile(ReadSetting("picture-uri"));
    EXPECT_NE(twin, picture) << "a desktop that goes by names must see a new one";
    EXPECT_EQ(ReadWholeFile(twin), ReadWholeFile(picture));
    ASSERT_TRUE(Installs(*desktop, picture));
    EXPECT_EQ(UriFile(ReadSetting("picture-uri")), picture);

    desktop->ApplyDesktopColor(0x0A0B0C);
    EXPECT_EQ(ReadSetting("primary-color"), "#0c0b0a");
    EXPECT_EQ(desktop->DesktopColor(), 0x0A0B0CU);

    for (const char* name : {"MATE", "X-Cinnamon"}) {
        session.SetVariable("XDG_CURRENT_DESKTOP", name);
        const auto other = NewDesktop(session.Path());
        EXPECT_FALSE(Installs(*other, picture)) << name << " has no schema here";
        other->ApplyDesktopColor(5);
        EXPECT_EQ(other->DesktopColor(), 5U);
    }
}

TEST(PlasmaBackground, ScriptNamesThePictureWithoutWaysOut)
{
    TTestSession session("KDE");
    const TTestBus bus(session);
    const std::string picture = session.SavePicture();
    const auto desktop = NewDesktop(session.Path());
    EXPECT_FALSE(Installs(*desktop, picture)) << "no shell runs";

    std::string script, printed;
    const auto plasma =
        NewService("org.kde.plasmashell", "/PlasmaShell org.kde.PlasmaShell.evaluateScript",
                   [&](GVariant* arguments) {
                       const char* text = nullptr;
                       g_variant_get(arguments, "(&s)", &text);
                       script = text;
                       return g_variant_new("(s)", printed.c_str());
                   });
    ASSERT_TRUE(Installs(*desktop, picture, 0x0A0B0C));
    for (const char* part :
         {"d.wallpaperPlugin = 'org.kde.image'", "/a%20b%27%C3%BC%2520%22$(x).bmp')",
          "d.writeConfig('Color', '12,11,10')"})
        EXPECT_NE(script.find(part), std::string::npos) << part << " in " << script;
    printed = FileUri(picture) + "\n";
    ASSERT_TRUE(Installs(*desktop, picture));
    EXPECT_NE(script.find("(x)~.bmp')"), std::string::npos) << "its twin";
}

TEST(CommandBackground, ProgramsAreGivenThePicture)
{
    struct TCase {
        const char* Desktop;
        TWords Command;
    };
    const TCase cases[] = {
        {"LXDE", {"pcmanfm", "--set-wallpaper=%s", "--wallpaper-mode=crop"}},
        {"LXQt", {"pcmanfm-qt", "--set-wallpaper=%s", "--wallpaper-mode=zoom"}},
        // It would expand a name with special characters.
        {"sway", {"swaymsg", "output", "*", "bg", "%l", "fill", "#0c0b0a"}},
    };
    for (TCase each : cases) {
        TTestSession session(each.Desktop);
        const std::string picture = session.SavePicture();
        const std::string link = session.File("murala-wallpaper.bmp");
        const auto desktop = NewDesktop(session.Path());
        EXPECT_FALSE(Installs(*desktop, picture)) << "no such program";
        session.AddRecorder(each.Command[0], 1);
        EXPECT_FALSE(Installs(*desktop, picture)) << each.Desktop << ": it failed";
        session.AddRecorder(each.Command[0]);
        EXPECT_TRUE(Installs(*desktop, picture, 0x0A0B0C)) << each.Desktop;
        for (std::string& word : each.Command)
            word = ReplaceAll(ReplaceAll(word, "%s", picture), "%l", link);
        EXPECT_EQ(session.Recorded(), each.Command);
        EXPECT_TRUE(!FileExists(link) || ReadWholeFile(link) == ReadWholeFile(picture));
    }
}

TEST(XfceBackground, DesktopShowsThePictureAndTheNextOneOfTheSameName)
{
    TTestSession session("XFCE");
    const TTestScreen screen(session, "320x240x24");
    const TTestBus bus(session);
    session.SetVariable("NO_AT_BRIDGE", "1");
    const TTestProgram windowManager({"openbox"});
    const TTestProgram xfdesktop({"xfdesktop", "--disable-wm-check"});
    const auto desktop = NewDesktop(session.Path());
    for (const unsigned seed : {0U, 5U, 9U}) {
        const TBitmap picture = TestPicture(320, 240, seed);
        ASSERT_TRUE(Installs(*desktop, session.SavePicture(picture)));
        // The desktop's own icons lie in the top-left quarter.
        EXPECT_TRUE(Eventually([&] {
            const TBitmap shown = screen.Picture();
            return std::equal(picture.Row(200) + 160, picture.Row(200) + 320, shown.Row(200) + 160);
        })) << seed;
    }
    const std::string noText = session.SavePicture(TestPicture(8, 8), "\xFF.bmp");
    EXPECT_FALSE(Installs(*desktop, noText)) << "it could not be named";
}

} // namespace
