// LXDE and LXQt, whose file managers draw the desktop and are told by a command. Without a running
// desktop the command would open a message box or start a process that the desktop then joins, so
// the desktop's window is looked for first.
#include "uBackground.h"
#include "uDesktopWindow.h"
#include "uImageFile.h"
#include "uProcess.h"
#include "uScreens.h"
#include "uX11.h"

#include <stdexcept>

namespace murala
{

namespace
{

bool IsDesktopThere(const char* program)
{
    return IsBelowWayland() || HasDesktopWindow(program);
}

void RunCommand(const std::vector<std::string>& command, TOnTook onTook)
{
    if (!HasProgram(command[0]))
        return onTook(TTook::No, "");
    if (!IsDesktopThere(command[0].c_str()))
        return onTook(TTook::NotYet, "");
    RunProgramLater(command, [onTook = std::move(onTook)](bool worked) {
        onTook(worked ? TTook::Yes : TTook::NotYet, "");
    });
}

class TLxdeBackground : public TBackground
{
public:
    void SetPicture(const std::string& path, TColor /*color*/, TOnTook onTook) override
    {
        RunCommand({"pcmanfm", "--set-wallpaper=" + path, "--wallpaper-mode=crop"},
                   std::move(onTook));
    }
};

// One window lies below all monitors, and its picture is stretched over them: the picture is made
// for all of them, with the colour between.
class TLxqtBackground : public TBackground
{
public:
    void SetPicture(const std::string& path, TColor color, TOnTook onTook) override
    try {
        const TScreens screens = ReadScreens();
        if (screens.Monitors.size() > 1)
            SaveBitmapFile(PictureOnMonitors(LoadImageFile(path), screens, color), path);
        RunCommand({"pcmanfm-qt", "--set-wallpaper=" + path, "--wallpaper-mode=stretch"},
                   std::move(onTook));
    } catch (const std::runtime_error&) {
        onTook(TTook::No, "");
    }
};

} // namespace

std::unique_ptr<TBackground> NewLxdeBackground()
{
    return std::make_unique<TLxdeBackground>();
}

std::unique_ptr<TBackground> NewLxqtBackground()
{
    return std::make_unique<TLxqtBackground>();
}

} // namespace murala
