#include "uBackground.h"
#include "uDescriptor.h"
#include "uDesktop.h"
#include "uFileUri.h"
#include "uTestSession.h"
#include "uText.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>

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
            const char* stored = g_variant_get_string(value.get(), nullptr);
            const TGText path(each.IsUri ? g_filename_from_uri(stored, nullptr, nullptr)
                                         : g_strdup(stored));
            return std::string(path ? path.get() : "");
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

TEST(PlasmaBackground, ShellThatStartsLateIsGivenTheScriptWithoutWaysOut)
{
    TTestSession session("KDE");
    const TTestBus bus(session);
    const std::string picture = session.SavePicture();
    const auto desktop = NewDesktop(session.Path());
    const auto answer = Install(*desktop, picture, 0x0A0B0C);
    EXPECT_FALSE(answer->has_value()) << "nothing is waited for";

    std::string script;
    int desktops = 0; // as long as the shell starts
    const auto plasma =
        NewService("org.kde.plasmashell", "/PlasmaShell org.kde.PlasmaShell.evaluateScript",
                   [&](GVariant* arguments) {
                       const char* text = nullptr;
                       g_variant_get(arguments, "(&s)", &text);
                       script = text;
                       return g_variant_new("(s)", std::to_string(desktops++).c_str());
                   });
    EXPECT_TRUE(Takes(answer));
    EXPECT_EQ(desktops, 2);
    for (const char* part : {"d.wallpaperPlugin = 'org.kde.image'", "/a%20b%27%C3%BC%2520%22$(x)~",
                             "d.writeConfig('Color', '12,11,10')"})
        EXPECT_NE(script.find(part), std::string::npos) << part << " in " << script;
}

TEST(Installing, NextPictureTakesThePlaceOfOneThatWaits)
{
    TTestSession session("KDE");
    const TTestBus bus(session);
    const auto desktop = NewDesktop(session.Path());
    const auto first = Install(*desktop, session.SavePicture());
    Install(*desktop, session.SavePicture());
    EXPECT_FALSE(Installs(*desktop, session.File("missing.bmp")));
    const auto plasma =
        NewService("org.kde.plasmashell", "/PlasmaShell org.kde.PlasmaShell.evaluateScript",
                   [](GVariant*) { return g_variant_new("(s)", "1"); });
    EXPECT_TRUE(Installs(*desktop, session.SavePicture()));
    EXPECT_FALSE(first->has_value());
    session.SavePicture(TestPicture(8, 8), "MuralaWallpaper.bmp");
    session.Write("MuralaWallpaper~mine.bmp", "x");
    const auto count = session.Count();
    for (int i = 0; i < 3; i++)
        EXPECT_TRUE(Installs(*desktop, session.File("MuralaWallpaper.bmp")));
    EXPECT_EQ(session.Count(), count + 1) << "older names go, files of the user's stay";
}

TEST(FileManagerBackground, CommandWaitsForTheDesktop)
{
    const std::pair<const char*, TWords> cases[] = {
        {"LXDE", {"pcmanfm", "--wallpaper-mode=crop"}},
        {"LXQt", {"pcmanfm-qt", "--wallpaper-mode=stretch"}},
    };
    for (const auto& [name, words] : cases) {
        TTestSession session(name);
        const TTestScreen screen(session, "64x48x24");
        session.AddRecorder(words[0]);
        const auto desktop = NewDesktop(session.Path());
        const auto answer = Install(*desktop, session.SavePicture());
        g_usleep(300000);
        EXPECT_FALSE(FileExists(session.File("recorded"))) << name << " has no desktop yet";
        screen.ShowDesktopOf(words[0].c_str());
        EXPECT_TRUE(Takes(answer));
        const TWords told = session.Recorded();
        ASSERT_EQ(told.size(), 3U);
        EXPECT_EQ((TWords{told[0], told[2]}), words);
        EXPECT_EQ(ReadWholeFile(told[1].substr(told[1].find('/'))),
                  ReadWholeFile(session.File(AwkwardName)));
    }
}

// Answers as sway does: one connection, every message with success.
class TTestSway
{
public:
    explicit TTestSway(TTestSession& session)
    {
        const std::string path = session.File("sway");
        session.SetVariable("SWAYSOCK", path);
        sockaddr_un address{AF_UNIX, {}};
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        EXPECT_EQ(bind(m_listener.Get(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        listen(m_listener.Get(), 1);
    }

    // Without a connection yet it waits for one.
    std::string Receive()
    {
        if (!m_connection)
            m_connection = TDescriptor(accept(m_listener.Get(), nullptr, nullptr));
        const timeval limit{10, 0};
        setsockopt(m_connection.Get(), SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
        std::uint32_t header[2] = {};
        char magic[6];
        recv(m_connection.Get(), magic, sizeof magic, MSG_WAITALL);
        recv(m_connection.Get(), header, sizeof header, MSG_WAITALL);
        std::string payload(header[0], '\0');
        recv(m_connection.Get(), payload.data(), payload.size(), MSG_WAITALL);
        return std::to_string(header[1]) + ' ' + payload;
    }

    void Send(std::uint32_t type, const std::string& payload)
    {
        const std::uint32_t header[] = {static_cast<std::uint32_t>(payload.size()), type};
        std::string message = "i3-ipc";
        message.append(reinterpret_cast<const char*>(header), sizeof header);
        message += payload;
        for (const char byte : message) // in pieces, as a stream may come
            send(m_connection.Get(), &byte, 1, 0);
    }

private:
    TDescriptor m_listener{socket(AF_UNIX, SOCK_STREAM, 0)};
    TDescriptor m_connection;
};

TEST(SwayBackground, PictureIsSetAgainWhenTheConfigurationIsReloaded)
{
    TTestSession session("sway");
    TTestSway sway(session);
    const auto desktop = NewDesktop(session.Path());
    const std::string picture = session.SavePicture();
    const auto answer = Install(*desktop, picture, 0x0A0B0C);
    EXPECT_EQ(sway.Receive(), "2 [\"workspace\"]");
    const std::string link = session.File("murala-wallpaper.bmp");
    const std::string command = "0 output * bg " + link + " fill #0c0b0a";
    EXPECT_EQ(sway.Receive(), command) << "it would expand the name itself";
    EXPECT_EQ(ReadWholeFile(link), ReadWholeFile(picture));
    EXPECT_FALSE(answer->has_value());
    sway.Send(2, R"({"success": true})");
    sway.Send(0, R"([{"success": true}])");
    EXPECT_TRUE(Takes(answer));
    sway.Send(0x80000000U, R"({"change": "focus"})");
    sway.Send(0x80000000U, R"({"change": "reload"})");
    Eventually([] { return g_main_context_pending(nullptr) == FALSE; });
    EXPECT_EQ(sway.Receive(), command);
}

TEST(SwaybgBackground, OneOfOursShowsThePicture)
{
    TTestSession session("Hyprland");
    session.SetVariable("PATH", session.File("bin"));
    const auto desktop = NewDesktop(session.Path());
    const std::string picture = session.SavePicture();
    const auto answer = Install(*desktop, picture);
    EXPECT_FALSE(Takes(answer));
    EXPECT_NE(answer->value().Advice.find("swaybg"), std::string::npos);

    session.SetVariable("PATH", session.File("bin") + ":/usr/bin:/bin");
    std::filesystem::permissions(session.Write("bin/swaybg", "#!/bin/sh\necho $$ \"$@\" >>~/shown\n"
                                                             "while :; do sleep 0.1; done\n"),
                                 std::filesystem::perms::owner_all);
    std::vector<pid_t> processes;
    for (std::size_t i = 1; i <= 2; i++) {
        EXPECT_TRUE(Installs(*desktop, picture, 0x0A0B0C));
        TWords shown;
        EXPECT_TRUE(Eventually([&] {
            const std::string text =
                FileExists(session.File("shown")) ? ReadWholeFile(session.File("shown")) : "";
            const auto lines = SplitLines(text);
            shown.assign(lines.begin(), lines.end());
            return shown.size() == i;
        }));
        processes.push_back(std::stoi(shown.back()));
        EXPECT_NE(shown.back().find(" -i " + picture + " -m fill -c #0c0b0a"), std::string::npos);
    }
    EXPECT_TRUE(Eventually([&] { return kill(processes[0], 0) != 0; }));
    EXPECT_EQ(kill(processes[1], 0), 0);

    // A compositor that lets no program draw its background: the program ends at once.
    session.AddRecorder("swaybg", 1);
    const auto refused = Install(*desktop, picture);
    EXPECT_FALSE(Takes(refused));
    EXPECT_NE(refused->value().Advice, "");
    EXPECT_EQ(kill(processes[1], 0), 0);
    kill(processes[1], SIGKILL);
}

TEST(UnnamedBackground, IsThatOfTheProgramWhichDrawsTheDesktop)
{
    for (const char* program : {"pcmanfm", "Other"}) {
        TTestSession session;
        const TTestScreen screen(session, "64x48x24");
        session.AddRecorder("pcmanfm");
        const std::string picture = session.SavePicture();
        const auto desktop = NewDesktop(session.Path());
        screen.ShowDesktopOf("Weather", 20, 20);
        EXPECT_TRUE(Installs(*desktop, picture)) << "a small window hides nothing";
        EXPECT_FALSE(FileExists(session.File("recorded")));
        screen.ShowDesktopOf(program, 64, 48);
        const auto answer = Install(*desktop, picture);
        const bool isKnown = Takes(answer);
        EXPECT_EQ(isKnown, FileExists(session.File("recorded"))) << program;
        EXPECT_NE(isKnown, answer->value().Advice.starts_with("Other ")) << program;
    }
}

TEST(EnlightenmentBackground, EveryMonitorHasThePictureOrTheModuleIsMissing)
{
    TTestSession session("Enlightenment");
    const TTestBus bus(session);
    TWords told;
    const std::string picture = session.SavePicture();
    const auto service =
        NewService("org.enlightenment.wm.service",
                   "/org/enlightenment/wm/RemoteObject org.enlightenment.wm.Desktop.Background.Add",
                   [&](GVariant* arguments) {
                       const TGText text(g_variant_print(arguments, FALSE));
                       told.emplace_back(text.get());
                       return g_variant_new("()");
                   });
    const auto desktop = NewDesktop(session.Path());
    EXPECT_TRUE(Installs(*desktop, picture));
    ASSERT_EQ(told.size(), 1U);
    EXPECT_TRUE(told[0].starts_with("(0, -1, -1, ")) << told[0];
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
