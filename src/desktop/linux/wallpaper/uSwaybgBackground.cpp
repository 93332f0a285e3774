// Wayland compositors that leave the background to a program: one swaybg of ours, which outlives
// this program and is replaced by the next.
#include "uBackground.h"
#include "uFolders.h"
#include "uGLib.h"
#include "uProcess.h"
#include "uWork.h"

#include <csignal>
#include <fstream>

namespace murala
{

namespace
{

constexpr const char* Program = "swaybg";
// We end the program before this one only when this one has shown its picture. One that the
// compositor refuses ends by itself within this time.
constexpr unsigned OverlapMs = 500;

std::filesystem::path NumberFile()
{
    return RuntimeFolder().value_or("/nonexistent") / "murala-swaybg";
}

// The process number of our swaybg; 0 when none runs. The number in the file may be another
// program's by now.
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
        const auto hasEnded = std::make_shared<bool>(false);
        const pid_t process =
            StartSilentProgram({Program, "-i", path, "-m", "fill", "-c", ColorToHexText(color)},
                               [=] { *hasEnded = true; });
        if (process == 0)
            return onTook(TTook::No, "");
        std::ofstream(NumberFile()) << process;
        RunLater(OverlapMs, [=, onTook = std::move(onTook)] {
            if (*hasEnded) {
                if (before != 0 && ReadProcess() == 0)
                    std::ofstream(NumberFile()) << before;
                return onTook(TTook::No, "It lets no program draw its background.");
            }
            if (before != 0)
                kill(before, SIGTERM);
            onTook(TTook::Yes, "");
        });
    }
};

} // namespace

std::unique_ptr<TBackground> NewSwaybgBackground()
{
    return std::make_unique<TSwaybgBackground>();
}

} // namespace murala
