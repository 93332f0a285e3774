#include "uBackground.h"
#include "uDesktop.h"
#include "uProcess.h"
#include "uTestSession.h"
#include "uText.h"

#include <gtest/gtest.h>

using namespace murala;

namespace
{

// The keys that these desktops have, in schemas of the tests' own. GLib reads the folder once in a
// process.
void UseOwnSchemas(TTestSession& session)
{
    struct TSchema {
        const char* Id;
        TWords Texts;
        const char* Boolean;
    };
    const TSchema schemas[] = {
        {"org.gnome.desktop.background",
         {"picture-uri", "picture-uri-dark", "picture-options", "primary-color",
          "color-shading-type"},
         "show-desktop-icons"},
        {"org.cinnamon.desktop.background",
         {"picture-uri", "picture-options", "primary-color", "color-shading-type"},
         "show-desktop-icons"},
        {"org.mate.background",
         {"picture-filename", "picture-options", "primary-color", "color-shading-type"},
         "draw-background"},
    };
    std::string text = "<schemalist>";
    for (const TSchema& schema : schemas) {
        text += FormatText("<schema id='%s' path='/%s/'>",
                           {schema.Id, ReplaceAll(schema.Id, ".", "/")});
        for (const std::string& key : schema.Texts)
            text += FormatText("<key name='%s' type='s'><default>''</default></key>", {key});
        text += FormatText("<key name='%s' type='b'><default>false</default></key></schema>",
                           {schema.Boolean});
    }
    std::filesystem::create_directory(session.File("schemas"));
    session.Write("schemas/test.gschema.xml", text + "</schemalist>");
    EXPECT_TRUE(RunProgram({"glib-compile-schemas", session.File("schemas")}));
    session.SetVariable("GSETTINGS_SCHEMA_DIR", session.File("schemas"));
    session.SetVariable("GSETTINGS_BACKEND", "memory");
}

std::string ReadSetting(const char* schema, const char* key)
{
    const TGObject<GSettings> settings(g_settings_new(schema));
    const TVariant value(g_settings_get_value(settings.get(), key));
    return TGText(g_variant_print(value.get(), FALSE)).get();
}

std::string Quoted(const std::string& text)
{
    return TGText(
               g_variant_print(
                   TVariant(g_variant_ref_sink(g_variant_new_string(text.c_str()))).get(), FALSE))
        .get();
}

TEST(SettingsBackground, EachDesktopHasThePictureUnderItsOwnKeysAndTheNextUnderAnotherName)
{
    struct TCase {
        const char *Desktop, *Schema, *Key, *DarkKey;
        bool IsUri;
    };
    const TCase cases[] = {
        {"GNOME", "org.gnome.desktop.background", "picture-uri", "picture-uri-dark", true},
        {"X-Cinnamon", "org.cinnamon.desktop.background", "picture-uri", nullptr, true},
        {"MATE", "org.mate.background", "picture-filename", nullptr, false},
    };
    for (const TCase& each : cases) {
        TTestSession session(each.Desktop);
        UseOwnSchemas(session);
        const auto desktop = NewDesktop(session.Path());
        const std::string picture = session.SavePicture();
        const auto shown = [&] {
            const std::string text = ReadSetting(each.Schema, each.Key);
            const TVariant value(g_variant_parse(nullptr, text.c_str(), nullptr, nullptr, nullptr));
            return UriFile(g_variant_get_string(value.get(), nullptr));
        };
        std::string before;
        for (const unsigned seed : {0U, 1U, 2U}) {
            session.SavePicture(TestPicture(8, 8, seed));
            ASSERT_TRUE(Installs(*desktop, picture, 0x0A0B0C)) << each.Desktop;
            EXPECT_NE(shown(), before) << "a desktop that goes by names must see a new one";
            before = shown();
            EXPECT_EQ(ReadWholeFile(before), ReadWholeFile(picture)) << each.Desktop;
            for (const char* key : {each.Key, each.DarkKey}) {
                const std::string stored = each.IsUri ? FileUri(before) : before;
                EXPECT_TRUE(key == nullptr || ReadSetting(each.Schema, key) == Quoted(stored));
            }
        }
        EXPECT_EQ(ReadSetting(each.Schema, "picture-options"), "'zoom'");
        EXPECT_EQ(ReadSetting(each.Schema, "primary-color"), "'#0c0b0a'");
        desktop->ApplyDesktopColor(0xFF);
        EXPECT_EQ(ReadSetting(each.Schema, "primary-color"), "'#ff0000'");
        EXPECT_EQ(desktop->DesktopColor(), 0xFFU);
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
