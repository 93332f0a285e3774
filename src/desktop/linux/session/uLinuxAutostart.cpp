// Programs that the session starts, as XDG autostart entries of the user.
#include "uAutostart.h"
#include "uDesktopEntry.h"
#include "uFolders.h"
#include "uPath.h"

#include <algorithm>
#include <cctype>

namespace murala
{

namespace
{

std::string EntryFile(std::string name)
{
    std::ranges::transform(name, name.begin(),
                           [](unsigned char letter) { return std::tolower(letter); });
    return PathText(UserConfigFolder() / "autostart" / (name + ".desktop"));
}

class TLinuxAutostart : public TAutostart
{
public:
    bool RunValueExists(const std::string& name) override
    {
        const TDesktopEntry entry(EntryFile(name));
        return !entry.IsEmpty() && !entry.ReadBoolean("Hidden", false) &&
               entry.ReadBoolean("X-GNOME-Autostart-enabled", true);
    }

    void SetRunValue(const std::string& name, const std::string& command) override
    {
        const TCommand split = SplitCommand(command);
        TDesktopEntry entry(EntryFile(name));
        entry.Write("Type", "Application");
        entry.Write("Name", name);
        entry.Write("Comment", "Changes the desktop's wallpaper");
        entry.Write("TryExec", split.Program); // the program may be removed; the entry stays
        entry.Write("Exec", ExecText(split));
        entry.Write("Terminal", "false");
        entry.Write("Hidden", "false");
        entry.Write("X-GNOME-Autostart-enabled", "true");
        entry.Save();
    }

    void DeleteRunValue(const std::string& name) override
    {
        if (RunValueExists(name))
            DeleteFileIfPresent(EntryFile(name));
    }
};

} // namespace

std::unique_ptr<TAutostart> NewAutostart()
{
    return std::make_unique<TLinuxAutostart>();
}

} // namespace murala
