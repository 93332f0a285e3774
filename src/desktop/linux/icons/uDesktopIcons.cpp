#include "uIconFiles.h"

#include "uDesktopWindow.h"
#include "uFileError.h"
#include "uFolders.h"
#include "uIniFile.h"
#include "uPath.h"
#include "uSafeFile.h"
#include "uScreens.h"
#include "uText.h"
#include "uX11.h"

#include <X11/Xatom.h>

#include <algorithm>
#include <cstdlib>

namespace murala
{

namespace fs = std::filesystem;

void ThrowNothingStored(const char* program)
{
    throw EIconsUnknown(FormatText("%s has stored no places of icons.", {program}));
}

std::string DesktopFolder()
{
    const char* home = std::getenv("HOME");
    const std::string homeFolder = home != nullptr ? home : "";
    const fs::path settings = UserConfigFolder() / "user-dirs.dirs";
    const TIniFile names = TIniFile::FromText(
        "[Folders]\n" + (FileExists(PathText(settings)) ? ReadWholeFile(PathText(settings)) : ""));
    const std::string folder = names.ReadText("Folders", "XDG_DESKTOP_DIR", "$HOME/Desktop");
    return ReplaceAll(folder, "$HOME", homeFolder);
}

// Hidden files left out.
std::vector<std::string> NamesOnDesktop()
{
    std::vector<std::string> names;
    std::error_code error;
    for (const fs::path& entry : EntriesOf(DesktopFolder(), error))
        if (!entry.filename().native().starts_with('.'))
            names.push_back(entry.filename());
    if (error && error != std::errc::no_such_file_or_directory)
        throw EFileError(
            FormatText("Cannot read the folder %s: %s", {DesktopFolder(), error.message()}));
    return names;
}

// The screen without its panels.
TRect WorkArea()
{
    const TSharedDisplay display = SharedDisplay();
    std::vector<unsigned long> values;
    if (display)
        values = ReadValues32(display.get(), DefaultRootWindow(display.get()), "_NET_WORKAREA",
                              XA_CARDINAL, 4);
    if (values.size() < 4) {
        const TSize whole = ReadScreens().Whole;
        return {0, 0, whole.Width, whole.Height};
    }
    const auto at = [&](std::size_t index) { return static_cast<int>(values[index]); };
    return {at(0), at(1), at(0) + at(2), at(1) + at(3)};
}

namespace
{

struct TFileManager {
    const char* WindowClass;
    TRects (*Icons)();
};
constexpr TFileManager FileManagers[] = {{"xfdesktop", XfceIcons},
                                         {"pcmanfm", PcmanfmIcons},
                                         {"pcmanfm-qt", PcmanfmQtIcons},
                                         {"Caja", CajaIcons},
                                         {"nemo-desktop", NemoIcons}};

} // namespace

TRects ReadDesktopIcons()
{
    const auto* manager = std::ranges::find_if(FileManagers, [](const TFileManager& each) {
        return DesktopWindowSize(each.WindowClass).has_value();
    });
    if (manager == std::end(FileManagers))
        throw EIconsUnknown("This desktop does not tell where its icons are.");
    TRects icons = manager->Icons();
    const auto monitors = ReadScreens().Monitors;
    const auto primary = std::ranges::find_if(monitors, &TMonitor::Primary);
    const TRect corner = primary != monitors.end() ? primary->Place : TRect{};
    for (TRect& icon : icons)
        icon = {icon.Left - corner.Left, icon.Top - corner.Top, icon.Right - corner.Left,
                icon.Bottom - corner.Top};
    return icons;
}

} // namespace murala
