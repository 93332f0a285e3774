// A user's session of a test's own: environment, screen, D-Bus, programs in PATH.
#pragma once

#include "uBitmap.h"
#include "uDesktop.h"
#include "uGLib.h"
#include "uTempFolder.h"
#include "uX11.h"

#include <X11/extensions/Xrandr.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace murala
{

// Polls for ten seconds at the most, letting messages through. The last answer.
bool Eventually(const std::function<bool()>& condition);

// A program that runs in the background; ended with the test.
class TTestProgram
{
public:
    explicit TTestProgram(std::vector<const char*> command);
    TTestProgram(const TTestProgram&) = delete;
    TTestProgram& operator=(const TTestProgram&) = delete;
    ~TTestProgram();
    // A whole line that it prints.
    std::string ReadLine();

private:
    TGObject<GSubprocess> m_process;
};

constexpr const char* AwkwardName = "a b'ü%20\"$(x).bmp";

// A picture in which every pixel tells its place.
TBitmap TestPicture(int width, int height, unsigned seed = 0);

using TWords = std::vector<std::string>;

// A home folder, a runtime folder and no running desktop.
class TTestSession : public TTempFolder
{
public:
    explicit TTestSession(const char* desktop = "");
    ~TTestSession();
    // Until the end of the test.
    void SetVariable(const std::string& name, const std::optional<std::string>& value);

    std::string SavePicture(const TBitmap& picture = TestPicture(8, 8),
                            const char* name = AwkwardName) const;

    // A script in PATH that writes down its name and arguments and ends with `code`; and what it
    // wrote since the last call, which is waited for.
    void AddRecorder(const std::string& name, int code = 0);
    TWords Recorded() const;

private:
    std::map<std::string, std::optional<std::string>> m_before;
};

// A session's D-Bus, which starts the programs that are installed for it.
struct TTestBus {
    explicit TTestBus(TTestSession& session)
    {
        session.SetVariable("DBUS_SESSION_BUS_ADDRESS", m_daemon.ReadLine());
    }
    TTestProgram m_daemon{{"dbus-daemon", "--session", "--nofork", "--print-address"}};
};

// Whether the program, looked up in PATH, ends with 0.
bool RunProgram(const TWords& command);

// Begins to install the picture; what the desktop answers, when it does.
std::shared_ptr<std::optional<TInstalled>> Install(TDesktop& desktop, const std::string& picture,
                                                   TColor color = 0);
bool Takes(const std::shared_ptr<std::optional<TInstalled>>& answer);
// Whether the desktop takes the picture; its answer is waited for.
bool Installs(TDesktop& desktop, const std::string& picture, TColor color = 0);

// A program on the session's bus that answers the calls of one method ("/path interface.method").
// Null: it does not answer.
using TAnswer = std::function<GVariant*(GVariant* arguments)>;
TGObject<GDBusConnection> NewService(const char* name, const char* method, TAnswer answer);

// An X server; DISPLAY points to it.
class TTestScreen
{
public:
    TTestScreen(TTestSession& session, const char* size);
    Display* Get() const { return m_display.get(); }
    // What can be seen.
    TBitmap Picture() const;
    bool Holds(Pixmap pixmap) const;
    // Of 32-bit values; without a window, of the root window.
    void SetProperty(const char* name, Atom type, std::vector<unsigned long> values,
                     Window window = None) const;
    // The window that a file manager draws the desktop in.
    void ShowDesktopOf(const char* windowClass, unsigned width = 10, unsigned height = 10) const;
    void SetMonitor(const char* name, const TRect& place, bool isPrimary,
                    RROutput* output = nullptr) const;

private:
    TTestProgram m_server;
    TDisplay m_display;
};

} // namespace murala
