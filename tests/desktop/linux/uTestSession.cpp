#include "uTestSession.h"

#include "uImageFile.h"
#include "uProcess.h"
#include "uText.h"

#include <X11/Xatom.h>

#include <signal.h>

#include <cstdlib>

namespace murala
{

bool Eventually(const std::function<bool()>& condition)
{
    for (int i = 0; i < 500 && !condition(); i++) {
        while (g_main_context_iteration(nullptr, FALSE) != FALSE) {
        }
        g_usleep(20000);
    }
    return condition();
}

bool RunProgram(const TWords& command)
{
    bool worked = false;
    bool ended = false;
    RunProgramLater(command, [&](bool answer) {
        worked = answer;
        ended = true;
    });
    return Eventually([&] { return ended; }) && worked;
}

std::shared_ptr<std::optional<TInstalled>> Install(TDesktop& desktop, const std::string& picture,
                                                   TColor color)
{
    auto answer = std::make_shared<std::optional<TInstalled>>();
    TScreenPictures pictures(1);
    pictures[0].Path = picture;
    desktop.Install(pictures, color,
                    [answer](const TInstalled& installed) { *answer = installed; });
    return answer;
}

bool Installs(TDesktop& desktop, const std::string& picture, TColor color)
{
    return Takes(Install(desktop, picture, color));
}

bool Takes(const std::shared_ptr<std::optional<TInstalled>>& answer)
{
    EXPECT_TRUE(Eventually([&] { return answer->has_value(); })) << "no answer";
    return *answer && (*answer)->Took;
}

TTestProgram::TTestProgram(std::vector<const char*> command)
{
    command.push_back(nullptr);
    const auto flags = static_cast<GSubprocessFlags>(G_SUBPROCESS_FLAGS_STDOUT_PIPE |
                                                     G_SUBPROCESS_FLAGS_STDERR_SILENCE);
    m_process.reset(g_subprocess_newv(command.data(), flags, nullptr));
    if (!m_process)
        throw std::runtime_error(std::string(command[0]) + " is missing");
}

TTestProgram::~TTestProgram()
{
    g_subprocess_send_signal(m_process.get(), SIGTERM);
    g_subprocess_wait(m_process.get(), nullptr, nullptr);
}

std::string TTestProgram::ReadLine()
{
    GInputStream* output = g_subprocess_get_stdout_pipe(m_process.get());
    std::string line;
    for (char letter = 0;
         g_input_stream_read(output, &letter, 1, nullptr, nullptr) == 1 && letter != '\n';)
        line += letter;
    return line;
}

TBitmap TestPicture(int width, int height, unsigned seed)
{
    TBitmap picture(width, height);
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++)
            picture.Row(y)[x] = (static_cast<unsigned>(x * 7919 + y * 104729) + seed) & 0xFFFFFFU;
    return picture;
}

TTestSession::TTestSession(const char* desktop)
{
    for (const char* name :
         {"DESKTOP_SESSION", "SWAYSOCK", "KDE_FULL_SESSION", "MATE_DESKTOP_SESSION_ID",
          "GNOME_DESKTOP_SESSION_ID", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "WAYLAND_DISPLAY",
          "DISPLAY", "DBUS_SESSION_BUS_ADDRESS"})
        SetVariable(name, std::nullopt);
    SetVariable("XDG_CURRENT_DESKTOP", desktop);
    SetVariable("HOME", Path());
    SetVariable("XDG_RUNTIME_DIR", Path());
    SetVariable("PATH", File("bin") + ":/usr/bin:/bin");
    std::filesystem::create_directory(File("bin"));
}

TTestSession::~TTestSession()
{
    for (const auto& [name, value] : std::map(m_before))
        SetVariable(name, value);
}

void TTestSession::SetVariable(const std::string& name, const std::optional<std::string>& value)
{
    const char* before = std::getenv(name.c_str());
    m_before.emplace(name, before != nullptr ? std::optional<std::string>(before) : std::nullopt);
    if (value)
        setenv(name.c_str(), value->c_str(), 1);
    else
        unsetenv(name.c_str());
}

std::string TTestSession::SavePicture(const TBitmap& picture, const char* name) const
{
    SaveBitmapFile(picture, File(name));
    return File(name);
}

void TTestSession::AddRecorder(const std::string& name, int code)
{
    std::filesystem::permissions(
        Write("bin/" + name, "#!/bin/sh\nprintf '%s\\n' \"${0##*/}\" \"$@\" >>~/new\n"
                             "mv ~/new ~/recorded\nexit " +
                                 std::to_string(code) + "\n"),
        std::filesystem::perms::owner_all);
}

TWords TTestSession::Recorded() const
{
    const std::string file = File("recorded");
    if (!Eventually([&] { return FileExists(file); }))
        return {"nothing"};
    const std::string text = ReadWholeFile(file);
    DeleteFileIfPresent(file);
    const auto lines = SplitLines(text);
    return {lines.begin(), lines.end()};
}

TGObject<GDBusConnection> NewService(const char* name, const char* method, TAnswer answer)
{
    struct TService {
        std::string Method;
        TAnswer Answer;
    };
    // In GLib's own thread, so that a caller in this one can wait.
    const auto filter = [](GDBusConnection* bus, GDBusMessage* call, gboolean, gpointer data) {
        const auto* service = static_cast<TService*>(data);
        if (g_dbus_message_get_message_type(call) != G_DBUS_MESSAGE_TYPE_METHOD_CALL ||
            g_dbus_message_get_path(call) + std::string(" ") + g_dbus_message_get_interface(call) +
                    '.' + g_dbus_message_get_member(call) !=
                service->Method)
            return call;
        const TGObject<GDBusMessage> owned(call);
        GVariant* answer = service->Answer(g_dbus_message_get_body(call));
        if (answer == nullptr)
            return static_cast<GDBusMessage*>(nullptr);
        const TGObject<GDBusMessage> reply(g_dbus_message_new_method_reply(call));
        g_dbus_message_set_body(reply.get(), answer);
        g_dbus_connection_send_message(bus, reply.get(), G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr,
                                       nullptr);
        return static_cast<GDBusMessage*>(nullptr);
    };
    constexpr auto flags = G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                           G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION;
    TGObject<GDBusConnection> bus(g_dbus_connection_new_for_address_sync(
        std::getenv("DBUS_SESSION_BUS_ADDRESS"), static_cast<GDBusConnectionFlags>(flags), nullptr,
        nullptr, nullptr));
    g_dbus_connection_add_filter(bus.get(), filter, new TService{method, std::move(answer)},
                                 [](gpointer data) { delete static_cast<TService*>(data); });
    const TVariant named(g_dbus_connection_call_sync(
        bus.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
        "RequestName", g_variant_new("(su)", name, 0), nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr,
        nullptr));
    EXPECT_TRUE(named);
    return bus;
}

TTestScreen::TTestScreen(TTestSession& session, const char* size)
    : m_server({"Xvfb", "-displayfd", "1", "-screen", "0", size, "-noreset", "-nolisten", "tcp"})
{
    session.SetVariable("DISPLAY", ":" + m_server.ReadLine());
    m_display = OpenDisplay();
    EXPECT_TRUE(m_display);
}

TBitmap TTestScreen::Picture() const
{
    TBitmap picture(DisplayWidth(Get(), 0), DisplayHeight(Get(), 0));
    XImage* image =
        XGetImage(Get(), DefaultRootWindow(Get()), 0, 0, static_cast<unsigned>(picture.Width()),
                  static_cast<unsigned>(picture.Height()), AllPlanes, ZPixmap);
    for (int y = 0; y < picture.Height(); y++)
        for (int x = 0; x < picture.Width(); x++)
            picture.Row(y)[x] = static_cast<TPixel>(XGetPixel(image, x, y)) & 0xFFFFFFU;
    XDestroyImage(image);
    return picture;
}

void TTestScreen::SetProperty(const char* name, Atom type, std::vector<unsigned long> values,
                              Window window) const
{
    XChangeProperty(Get(), window != None ? window : DefaultRootWindow(Get()),
                    XInternAtom(Get(), name, False), type, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(values.data()),
                    static_cast<int>(values.size()));
    XSync(Get(), False);
}

void TTestScreen::ShowDesktopOf(const char* windowClass, unsigned width, unsigned height) const
{
    const Window window =
        XCreateSimpleWindow(Get(), DefaultRootWindow(Get()), 0, 0, width, height, 0, 0, 0);
    XClassHint hint{const_cast<char*>("desktop_window"), const_cast<char*>(windowClass)};
    XSetClassHint(Get(), window, &hint);
    SetProperty("_NET_WM_WINDOW_TYPE", XA_ATOM,
                {XInternAtom(Get(), "_NET_WM_WINDOW_TYPE_DESKTOP", False)}, window);
    XMapWindow(Get(), window);
    XSync(Get(), False);
}

void TTestScreen::SetMonitor(const char* name, const TRect& place, bool isPrimary,
                             RROutput* output) const
{
    XRRMonitorInfo monitor{};
    monitor.name = XInternAtom(Get(), name, False);
    monitor.primary = isPrimary ? True : False;
    monitor.x = place.Left, monitor.y = place.Top;
    monitor.width = place.Width(), monitor.height = place.Height();
    monitor.mwidth = monitor.mheight = 50;
    monitor.noutput = output != nullptr ? 1 : 0;
    monitor.outputs = output;
    XRRSetMonitor(Get(), DefaultRootWindow(Get()), &monitor);
    XSync(Get(), False);
}

bool TTestScreen::Holds(Pixmap pixmap) const
{
    TXErrorGuard guard(Get());
    Window root = None;
    int ignored = 0;
    unsigned size = 0;
    return XGetGeometry(Get(), pixmap, &root, &ignored, &ignored, &size, &size, &size, &size) != 0;
}

} // namespace murala
