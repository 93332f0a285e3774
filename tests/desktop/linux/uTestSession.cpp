#include "uTestSession.h"

#include "uImageFile.h"
#include "uSafeFile.h"
#include "uText.h"

#include <glib/gstdio.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>

namespace murala
{

bool Eventually(const std::function<bool()>& condition)
{
    for (int i = 0; i < 500; i++) {
        if (condition())
            return true;
        while (g_main_context_iteration(nullptr, FALSE) != FALSE) {
        }
        g_usleep(20000);
    }
    return condition();
}

void TTestEnvironment::Set(const std::string& name, const std::optional<std::string>& value)
{
    const char* before = std::getenv(name.c_str());
    m_before.emplace(name, before != nullptr ? std::optional<std::string>(before) : std::nullopt);
    if (value)
        setenv(name.c_str(), value->c_str(), 1);
    else
        unsetenv(name.c_str());
}

TTestEnvironment::~TTestEnvironment()
{
    for (const auto& [name, value] : std::exchange(m_before, {}))
        Set(name, value);
}

TTestProgram::TTestProgram(const std::vector<std::string>& command)
{
    std::vector<char*> arguments;
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    const auto flags = static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_DO_NOT_REAP_CHILD |
                                                G_SPAWN_STDERR_TO_DEV_NULL);
    EXPECT_TRUE(g_spawn_async_with_pipes(nullptr, arguments.data(), nullptr, flags, nullptr,
                                         nullptr, &m_process, nullptr, &m_output, nullptr, nullptr))
        << command[0] << " is missing";
}

TTestProgram::~TTestProgram()
{
    if (m_process == 0)
        return;
    kill(m_process, SIGTERM);
    waitpid(m_process, nullptr, 0);
    close(m_output);
}

std::string TTestProgram::ReadLine()
{
    std::string line;
    for (char letter = 0; read(m_output, &letter, 1) == 1 && letter != '\n';)
        line += letter;
    return line;
}

TTestSession::TTestSession()
{
    SetVariable("HOME", m_folder.Path());
    SetVariable("PATH", m_folder.File("bin") + ":/usr/bin:/bin");
    SetVariable("XDG_RUNTIME_DIR", m_folder.Path());
    for (const char* name :
         {"XDG_CURRENT_DESKTOP", "DESKTOP_SESSION", "SWAYSOCK", "KDE_FULL_SESSION",
          "MATE_DESKTOP_SESSION_ID", "GNOME_DESKTOP_SESSION_ID", "XDG_DATA_HOME", "XDG_CONFIG_HOME",
          "WAYLAND_DISPLAY", "DISPLAY", "DBUS_SESSION_BUS_ADDRESS"})
        SetVariable(name, std::nullopt);
}

void TTestSession::AddProgram(const std::string& name, const std::string& script)
{
    const std::string file = m_folder.File("bin/" + name);
    std::filesystem::create_directories(FolderPart(file));
    std::ofstream(file) << "#!/bin/sh\n" << script;
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
}

void TTestSession::AddRecorder(const std::string& name, int code)
{
    AddProgram(name, "printf '%s\\n' \"$0\" \"$@\" >>\"$HOME/new\"\n"
                     "mv \"$HOME/new\" \"$HOME/recorded\"\nexit " +
                         std::to_string(code) + "\n");
}

std::vector<std::string> TTestSession::Recorded() const
{
    if (!FileExists(File("recorded")))
        return {};
    const std::string text = ReadWholeFile(File("recorded"));
    std::vector<std::string> lines;
    for (const std::string_view line : SplitLines(text))
        lines.emplace_back(line);
    lines[0] = FileNamePart(lines[0]);
    return lines;
}

TTestBus::TTestBus(bool withServices) : m_bus(g_test_dbus_new(G_TEST_DBUS_NONE))
{
    if (withServices)
        g_test_dbus_add_service_dir(m_bus.get(), "/usr/share/dbus-1/services");
    // It takes these away without giving them back.
    const std::string display = std::getenv("DISPLAY") != nullptr ? std::getenv("DISPLAY") : "";
    const std::string runtime = std::getenv("XDG_RUNTIME_DIR");
    g_test_dbus_up(m_bus.get());
    setenv("DISPLAY", display.c_str(), 1);
    setenv("XDG_RUNTIME_DIR", runtime.c_str(), 1);
}

TTestBus::~TTestBus()
{
    g_test_dbus_down(m_bus.get());
}

TTestService::TTestService(const std::string& name, const std::string& path,
                           const std::string& interface, const std::string& methods, TAnswer answer)
    : m_answer(std::move(answer)), m_thread([=, this] { Run(name, path, interface, methods); })
{
    while (!m_ready)
        g_usleep(1000);
}

TTestService::~TTestService()
{
    g_main_loop_quit(m_loop);
    m_thread.join();
}

void TTestService::Run(const std::string& name, const std::string& path,
                       const std::string& interface, const std::string& methods)
{
    GMainContext* context = g_main_context_new();
    g_main_context_push_thread_default(context);
    m_loop = g_main_loop_new(context, FALSE);
    const TGText address(g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
    const TGObject<GDBusConnection> bus(g_dbus_connection_new_for_address_sync(
        address.get(),
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, nullptr, nullptr));
    const std::string xml =
        "<node><interface name='" + interface + "'>" + methods + "</interface></node>";
    GDBusNodeInfo* node = g_dbus_node_info_new_for_xml(xml.c_str(), nullptr);
    const GDBusInterfaceVTable table{
        [](GDBusConnection*, const char*, const char*, const char*, const char*,
           GVariant* arguments, GDBusMethodInvocation* call, gpointer self) {
            g_dbus_method_invocation_return_value(
                call, static_cast<TTestService*>(self)->m_answer(arguments));
        },
        nullptr,
        nullptr,
        {}};
    g_dbus_connection_register_object(bus.get(), path.c_str(), node->interfaces[0], &table, this,
                                      nullptr, nullptr);
    g_bus_own_name_on_connection(
        bus.get(), name.c_str(), G_BUS_NAME_OWNER_FLAGS_NONE,
        [](GDBusConnection*, const char*, gpointer self) {
            static_cast<TTestService*>(self)->m_ready = true;
        },
        nullptr, this, nullptr);
    g_main_loop_run(m_loop);
    g_dbus_node_info_unref(node);
    g_main_loop_unref(m_loop);
    g_main_context_pop_thread_default(context);
    g_main_context_unref(context);
}

TTestScreen::TTestScreen(TTestSession& session, const std::string& size)
    : m_server({"Xvfb", "-displayfd", "1", "-screen", "0", size, "-noreset", "-nolisten", "tcp"})
{
    session.SetVariable("DISPLAY", ":" + m_server.ReadLine());
    m_display = OpenDisplay();
    EXPECT_TRUE(m_display);
}

TBitmap TTestScreen::Picture() const
{
    const int width = DisplayWidth(m_display.get(), 0);
    const int height = DisplayHeight(m_display.get(), 0);
    TBitmap picture(width, height);
    XImage* image =
        XGetImage(m_display.get(), DefaultRootWindow(m_display.get()), 0, 0,
                  static_cast<unsigned>(width), static_cast<unsigned>(height), AllPlanes, ZPixmap);
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++)
            picture.Row(y)[x] = static_cast<TPixel>(XGetPixel(image, x, y)) & 0xFFFFFFU;
    XDestroyImage(image);
    return picture;
}

bool TTestScreen::Shows(const TBitmap& picture) const
{
    const TBitmap screen = Picture();
    for (int y = 0; y < picture.Height(); y++)
        if (!std::equal(picture.Row(y), picture.Row(y) + picture.Width(), screen.Row(y)))
            return false;
    return screen.Size() == picture.Size();
}

bool TTestScreen::Holds(Pixmap pixmap) const
{
    TXErrorGuard guard(m_display.get());
    Window root = None;
    int ignored = 0;
    unsigned size = 0;
    return XGetGeometry(m_display.get(), pixmap, &root, &ignored, &ignored, &size, &size, &size,
                        &size) != 0;
}

TBitmap TestPicture(int width, int height, unsigned seed)
{
    TBitmap picture(width, height);
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++)
            picture.Row(y)[x] = (static_cast<unsigned>(x * 7919 + y * 104729) + seed) & 0xFFFFFFU;
    return picture;
}

std::string SaveTestPicture(const TBitmap& picture, const std::string& file)
{
    SaveBitmapFile(picture, file);
    return file;
}

} // namespace murala
