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

constexpr const char* CommandKey = "X-Murala-Command";

std::string EntryFile(std::string name)
{
    std::ranges::transform(name, name.begin(),
                           [](unsigned char letter) { return std::tolower(letter); });
    return PathText(UserConfigFolder() / "autostart" / (name + ".desktop"));
}

} // namespace

std::optional<std::string> ReadAutostart(const std::string& name)
{
    const TDesktopEntry entry(EntryFile(name));
    if (entry.IsEmpty() || entry.ReadBoolean("Hidden", false) ||
        !entry.ReadBoolean("X-GNOME-Autostart-enabled", true))
        return std::nullopt;
    return entry.Read(CommandKey);
}

bool WriteAutostart(const std::string& name, const std::string& command)
{
    TDesktopEntry entry(EntryFile(name));
    entry.Write("Type", "Application");
    entry.Write("Name", name);
    entry.Write("Comment", "Changes the desktop's wallpaper");
    entry.Write("Exec", ExecText(SplitCommand(command)));
    entry.Write("Terminal", "false");
    entry.Write("Hidden", "false");
    entry.Write("X-GNOME-Autostart-enabled", "true");
    entry.Write(CommandKey, command);
    return entry.Save();
}

void DeleteAutostart(const std::string& name)
{
    DeleteFileIfPresent(EntryFile(name));
}

} // namespace murala
