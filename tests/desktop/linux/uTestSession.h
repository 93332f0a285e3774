// A user's session of a test's own: environment, screen, D-Bus, programs in PATH.
#pragma once

#include "uBitmap.h"
#include "uGLib.h"
#include "uTempFolder.h"
#include "uX11.h"

#include <atomic>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace murala
{

// Polls for ten seconds at the most, letting messages through. The last answer.
bool Eventually(const std::function<bool()>& condition);

// Changes of the environment; undone at the end.
class TTestEnvironment
{
public:
    ~TTestEnvironment();
    void Set(const std::string& name, const std::optional<std::string>& value);

private:
    std::map<std::string, std::optional<std::string>> m_before;
};

// A program that runs in the background; ended with the test.
class TTestProgram
{
public:
    explicit TTestProgram(const std::vector<std::string>& command);
    TTestProgram(const TTestProgram&) = delete;
    TTestProgram& operator=(const TTestProgram&) = delete;
    ~TTestProgram();
    // A whole line that it prints.
    std::string ReadLine();

private:
    GPid m_process = 0;
    int m_output = -1;
};

// A home folder, a runtime folder and no running desktop.
class TTestSession
{
public:
    TTestSession();
    void SetVariable(const std::string& name, const std::optional<std::string>& value)
    {
        m_environment.Set(name, value);
    }
    std::string File(std::string_view name) const { return m_folder.File(name); }
    std::string ProgramFolder() const { return WithTrailingDivider(m_folder.Path()); }

    // An executable script in PATH.
    void AddProgram(const std::string& name, const std::string& script);
    // One that writes down its arguments, one a line, and ends with `code`; and what it wrote.
    void AddRecorder(const std::string& name, int code = 0);
    std::vector<std::string> Recorded() const;

private:
    TTempFolder m_folder;
    TTestEnvironment m_environment;
};

// A session's D-Bus. `withServices`: programs of the system are started on demand.
class TTestBus
{
public:
    explicit TTestBus(bool withServices);
    TTestBus(const TTestBus&) = delete;
    TTestBus& operator=(const TTestBus&) = delete;
    ~TTestBus();

private:
    TGObject<GTestDBus> m_bus;
};

// A program on the session's bus, in a thread of its own: `answer` makes a call's answer from its
// arguments.
class TTestService
{
public:
    using TAnswer = std::function<GVariant*(GVariant*)>;

    TTestService(const std::string& name, const std::string& path, const std::string& interface,
                 const std::string& methods, TAnswer answer);
    TTestService(const TTestService&) = delete;
    TTestService& operator=(const TTestService&) = delete;
    ~TTestService();

private:
    void Run(const std::string& name, const std::string& path, const std::string& interface,
             const std::string& methods);

    TAnswer m_answer;
    GMainLoop* m_loop = nullptr;
    std::atomic<bool> m_ready = false;
    std::thread m_thread;
};

// An X server; DISPLAY points to it.
class TTestScreen
{
public:
    TTestScreen(TTestSession& session, const std::string& size);
    Display* Get() const { return m_display.get(); }
    // What can be seen.
    TBitmap Picture() const;
    bool Shows(const TBitmap& picture) const;
    bool Holds(Pixmap pixmap) const;

private:
    TTestProgram m_server;
    TDisplay m_display;
};

// A picture in which every pixel tells its place.
TBitmap TestPicture(int width, int height, unsigned seed = 0);
std::string SaveTestPicture(const TBitmap& picture, const std::string& file);

} // namespace murala
