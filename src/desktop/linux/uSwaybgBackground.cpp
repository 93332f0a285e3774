// Wayland compositors that leave the background to a program: one swaybg of ours, which outlives
// this program and is replaced by the next.
#include "uBackground.h"
#include "uFolders.h"
#include "uGLib.h"
#include "uProcess.h"

#include <csignal>
#include <fstream>

namespace murala
{

namespace
{

constexpr const char* Program = "swaybg";
constexpr guint OverlapMs = 500; // the next one is seen before the one before goes

std::filesystem::path NumberFile()
{
    return RuntimeFolder().value_or("/nonexistent") / "murala-swaybg";
}

// Of the one that is ours; 0 when there is none. The number may be another program's by now.
pid_t ReadProcess()
{
    pid_t process = 0;
    std::string name;
    std::ifstream(NumberFile()) >> process;
    std::ifstream("/proc/" + std::to_string(process) + "/comm") >> name;
    return name == Program ? process : 0;
}

class TSwaybgBackground : public TBackground
{
public:
    bool GoesByNames() const override { return false; }

    void SetPicture(const std::string& path, TColor color, TOnTook onTook) override
    {
        if (!HasProgram(Program))
            return onTook(TTook::No, "Install swaybg, which shows the picture on this desktop.");
        const pid_t before = ReadProcess();
        const pid_t process =
            StartSilentProgram({Program, "-i", path, "-m", "fill", "-c", ColorToHexText(color)});
        if (process == 0)
            return onTook(TTook::No, "");
        std::ofstream(NumberFile()) << process;
        if (before != 0)
            g_timeout_add(
                OverlapMs,
                [](gpointer number) -> gboolean {
                    kill(GPOINTER_TO_INT(number), SIGTERM);
                    return G_SOURCE_REMOVE;
                },
                GINT_TO_POINTER(before));
        onTook(TTook::Yes, "");
    }
};

} // namespace

std::unique_ptr<TBackground> NewSwaybgBackground()
{
    return std::make_unique<TSwaybgBackground>();
}

} // namespace murala
