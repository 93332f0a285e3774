#include "uBackground.h"
#include "uDesktop.h"
#include "uSafeFile.h"
#include "uTestSession.h"

#include <gtest/gtest.h>

using namespace murala;

namespace
{

constexpr const char* AwkwardName = "a b'ü%20\"$(x).bmp";

std::string ReadSetting(const char* schema, const char* key)
{
    const TGObject<GSettings> settings(g_settings_new(schema));
    return TGText(g_settings_get_string(settings.get(), key)).get();
}

TEST(GnomeBackground, SettingsNameThePictureAndItsTwinInTurn)
{
    TTestSession session;
    session.SetVariable("XDG_CURRENT_DESKTOP", "GNOME");
    session.SetVariable("GSETTINGS_BACKEND", "keyfile");
    constexpr const char* schema = "org.gnome.desktop.background";
    const std::string picture = SaveTestPicture(TestPicture(8, 8), session.File(AwkwardName));
    const auto desktop = NewDesktop(session.ProgramFolder());
    ASSERT_TRUE(desktop->SetWallpaperFile(picture));
    EXPECT_EQ(UriFile(ReadSetting(schema, "picture-uri")), picture);
    EXPECT_EQ(UriFile(ReadSetting(schema, "picture-uri-dark")), picture);
    EXPECT_EQ(ReadSetting(schema, "picture-options"), "zoom");

    const std::string second = ReadWholeFile(SaveTestPicture(TestPicture(8, 8, 1), picture));
    ASSERT_TRUE(desktop->SetWallpaperFile(picture));
    const std::string twin = UriFile(ReadSetting(schema, "picture-uri"));
    EXPECT_NE(twin, picture) << "a desktop that goes by names must see a new one";
    EXPECT_EQ(ReadWholeFile(twin), second);
    ASSERT_TRUE(desktop->SetWallpaperFile(picture));
    EXPECT_EQ(UriFile(ReadSetting(schema, "picture-uri")), picture);

    desktop->SetDesktopColor(0x0A0B0C);
    EXPECT_EQ(ReadSetting(schema, "primary-color"), "#0c0b0a");
    EXPECT_EQ(desktop->DesktopColor(), 0x0A0B0CU);
}

TEST(GnomeBackground, SchemaThatIsNotInstalledIsAFailure)
{
    TTestSession session;
    for (const char* name : {"MATE", "X-Cinnamon"}) {
        session.SetVariable("XDG_CURRENT_DESKTOP", name);
        const auto desktop = NewDesktop(session.ProgramFolder());
        const auto picture = SaveTestPicture(TestPicture(8, 8), session.File("p.bmp"));
        EXPECT_FALSE(desktop->SetWallpaperFile(picture)) << name;
        desktop->SetDesktopColor(5);
        EXPECT_EQ(desktop->DesktopColor(), 0U);
    }
}

TEST(PlasmaBackground, ScriptNamesThePictureWithoutWaysOut)
{
    TTestSession session;
    session.SetVariable("XDG_CURRENT_DESKTOP", "KDE");
    TTestBus bus(false);
    const std::string picture = SaveTestPicture(TestPicture(8, 8), session.File(AwkwardName));
    const auto desktop = NewDesktop(session.ProgramFolder());
    EXPECT_FALSE(desktop->SetWallpaperFile(picture)) << "no shell runs";

    std::vector<std::string> scripts;
    std::string printed;
    const TTestService plasma("org.kde.plasmashell", "/PlasmaShell", "org.kde.PlasmaShell",
                              "<method name='evaluateScript'><arg type='s' direction='in'/>"
                              "<arg type='s' direction='out'/></method>",
                              [&](GVariant* arguments) {
                                  const char* script = nullptr;
                                  g_variant_get(arguments, "(&s)", &script);
                                  scripts.emplace_back(script);
                                  return g_variant_new("(s)", printed.c_str());
                              });
    desktop->StoreDesktopColorText("12 11 10");
    ASSERT_TRUE(desktop->SetWallpaperFile(picture));
    const std::string& script = scripts.back();
    EXPECT_NE(script.find("d.wallpaperPlugin = 'org.kde.image'"), std::string::npos);
    EXPECT_NE(script.find("/a%20b%27%C3%BC%2520%22$(x).bmp')"), std::string::npos) << script;
    EXPECT_NE(script.find("d.writeConfig('Color', '12,11,10')"), std::string::npos) << script;

    printed = FileUri(picture) + "\n";
    ASSERT_TRUE(desktop->SetWallpaperFile(picture));
    EXPECT_NE(scripts.back().find("(x)~.bmp')"), std::string::npos) << "its twin";
}

TEST(CommandBackground, ProgramsAreGivenThePicture)
{
    struct TCase {
        const char* Session;
        const char* Program;
        std::vector<std::string> Before, After;
    };
    const TCase cases[] = {
        {"LXDE", "pcmanfm", {"--set-wallpaper=%s"}, {"--wallpaper-mode=crop"}},
        {"LXQt", "pcmanfm-qt", {"--set-wallpaper=%s"}, {"--wallpaper-mode=zoom"}},
        {"sway", "swaymsg", {"output", "*", "bg", "%s"}, {"fill", "#0c0b0a"}},
    };
    for (const TCase& each : cases) {
        TTestSession session;
        session.SetVariable("XDG_CURRENT_DESKTOP", each.Session);
        const std::string picture = SaveTestPicture(TestPicture(8, 8), session.File("p.bmp"));
        const auto desktop = NewDesktop(session.ProgramFolder());
        EXPECT_FALSE(desktop->SetWallpaperFile(picture)) << "no such program";
        session.AddRecorder(each.Program);
        desktop->StoreDesktopColorText("12 11 10");
        EXPECT_TRUE(desktop->SetWallpaperFile(picture)) << each.Program;
        std::vector<std::string> expected{each.Program};
        for (const auto& part : {each.Before, each.After})
            expected.insert(expected.end(), part.begin(), part.end());
        for (std::string& argument : expected)
            if (argument.ends_with("%s"))
                argument.replace(argument.size() - 2, 2, picture);
        EXPECT_EQ(session.Recorded(), expected);
        session.AddRecorder(each.Program, 1);
        EXPECT_FALSE(desktop->SetWallpaperFile(picture)) << each.Program << " failed";
    }
}

TEST(CommandBackground, SwayIsGivenOnlyNamesThatItLeavesAsTheyAre)
{
    TTestSession session;
    session.SetVariable("SWAYSOCK", "/x");
    session.AddRecorder("swaymsg");
    const std::string picture = SaveTestPicture(TestPicture(8, 8), session.File(AwkwardName));
    ASSERT_TRUE(NewDesktop(session.ProgramFolder())->SetWallpaperFile(picture));
    const std::string given = session.Recorded().at(4);
    EXPECT_EQ(given.find_first_of(" '\"$()%"), std::string::npos) << given;
    EXPECT_EQ(ReadWholeFile(given), ReadWholeFile(picture));
}

TEST(XfceBackground, DesktopShowsThePictureAndTheNextOneOfTheSameName)
{
    TTestSession session;
    session.SetVariable("XDG_CURRENT_DESKTOP", "XFCE");
    TTestScreen screen(session, "320x240x24");
    TTestBus bus(true);
    session.SetVariable("NO_AT_BRIDGE", "1");
    const TTestProgram windowManager({"openbox"});
    const TTestProgram xfdesktop({"xfdesktop", "--disable-wm-check"});
    const auto desktop = NewDesktop(session.ProgramFolder());
    desktop->StoreDesktopColorText("12 11 10");
    for (const unsigned seed : {0U, 5U, 9U}) {
        const TBitmap picture = TestPicture(320, 240, seed);
        ASSERT_TRUE(desktop->SetWallpaperFile(SaveTestPicture(picture, session.File(AwkwardName))));
        // The desktop's own icons lie in the top-left quarter.
        EXPECT_TRUE(Eventually([&] {
            const TBitmap shown = screen.Picture();
            return std::equal(picture.Row(200) + 160, picture.Row(200) + 320, shown.Row(200) + 160);
        })) << seed;
    }
}

} // namespace
