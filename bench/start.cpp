// start [ROWS [RUNS]]: how long murala, which lies beside it, takes from its start to a window on
// the screen with a list of so many wallpapers (10000), on the display that DISPLAY names. Every
// second run is a first start: without settings. The medians count. Ends with 1 when one is over
// its limit.
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <X11/Xlib.h>

namespace
{

namespace fs = std::filesystem;
using TClock = std::chrono::steady_clock;

constexpr double Limit = 200; // milliseconds
constexpr std::chrono::seconds Patience{10};
constexpr std::chrono::milliseconds Rest{700}; // the window is painted, the program does nothing
constexpr int SmallestWindow = 300;            // pixels; what is smaller is no main window

using TDisplay = std::unique_ptr<Display, decltype(&XCloseDisplay)>;

// A home of its own, with a list.
class THome
{
public:
    explicit THome(int rows)
        : m_folder(fs::temp_directory_path() / ("murala-start-" + std::to_string(getpid())))
    {
        for (const char* name : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"})
            setenv(name, m_folder.c_str(), 1);
        fs::create_directories(m_folder / "murala");
        std::ofstream list(m_folder / "murala" / "Murala.Wallpaper.List");
        for (int row = 0; row < rows; ++row)
            list << "\"/pictures/" << row << ".jpg\",\"Picture " << row
                 << R"x(","Stretched","0","0","(None)","255","255","255","255","255","255","0",)x"
                 << R"("0 0 0","Category )" << row % 50 << "\"\r\n";
    }
    ~THome() { fs::remove_all(m_folder); }
    THome(const THome&) = delete;
    THome& operator=(const THome&) = delete;

    void ForgetSettings() const { fs::remove(m_folder / "murala" / "Murala.ini"); }

private:
    fs::path m_folder;
};

void WaitForWindow(Display* display, TClock::time_point end)
{
    while (TClock::now() < end) {
        pollfd connection{ConnectionNumber(display), POLLIN, 0};
        if (XPending(display) == 0 && poll(&connection, 1, 100) <= 0)
            continue;
        XEvent event;
        XNextEvent(display, &event);
        XWindowAttributes window{};
        if (event.type == MapNotify &&
            XGetWindowAttributes(display, event.xmap.window, &window) != 0 &&
            window.width >= SmallestWindow)
            return;
    }
    throw std::runtime_error("no window came");
}

// Milliseconds to the window.
double Start(Display* display, const std::string& program)
{
    XSync(display, True); // events of the run before
    std::string name = program;
    char* words[] = {name.data(), nullptr};
    pid_t child = 0;
    const auto start = TClock::now();
    if (posix_spawn(&child, program.c_str(), nullptr, nullptr, words, environ) != 0)
        throw std::runtime_error("cannot start " + program);
    WaitForWindow(display, start + Patience);
    const std::chrono::duration<double, std::milli> taken = TClock::now() - start;
    std::this_thread::sleep_for(Rest);
    kill(child, SIGTERM);
    waitpid(child, nullptr, 0);
    return taken.count();
}

bool Report(const char* what, std::vector<double> times)
{
    std::ranges::sort(times);
    const double median = times[times.size() / 2];
    std::printf("%-12s median %.0f ms, %.0f to %.0f (limit %.0f)\n", what, median, times.front(),
                times.back(), Limit);
    return median <= Limit;
}

} // namespace

int main(int argc, char** argv)
try {
    const int rows = argc > 1 ? std::stoi(argv[1]) : 10000;
    const int runs = argc > 2 ? std::max(std::stoi(argv[2]), 1) : 11;
    const TDisplay display(XOpenDisplay(nullptr), &XCloseDisplay);
    if (!display)
        throw std::runtime_error("no display");
    // A window may have gone before it is looked at.
    XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
    XSelectInput(display.get(), DefaultRootWindow(display.get()), SubstructureNotifyMask);
    const THome home(rows);
    const std::string program = fs::canonical("/proc/self/exe").replace_filename("murala");
    std::vector<double> first, later;
    for (int run = 0; run < runs; ++run) {
        home.ForgetSettings();
        first.push_back(Start(display.get(), program));
        later.push_back(Start(display.get(), program));
    }
    const bool isFast = Report("first start", first);
    return Report("later", later) && isFast ? 0 : 1;
} catch (const std::exception& error) {
    std::fprintf(stderr, "start: %s\n", error.what());
    return 2;
}
