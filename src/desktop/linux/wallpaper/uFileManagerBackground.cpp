// LXDE and LXQt, whose file managers draw the desktop and take a picture by a command. While no
// desktop runs, the command would open a message box or become the desktop itself, so we look for
// the desktop's window first. Settings that no command changes lie in files that the desktop reads
// when it starts: we write them while it is not running, and start it again.
#include "uBackground.h"
#include "uDesktopWindow.h"
#include "uFolders.h"
#include "uGLib.h"
#include "uImageFile.h"
#include "uPath.h"
#include "uProcess.h"
#include "uSafeFile.h"
#include "uScreens.h"
#include "uText.h"
#include "uWork.h"
#include "uX11.h"

#include <exception>
#include <vector>

namespace murala
{

namespace
{

using TWords = std::vector<std::string>;

constexpr unsigned LastWordsMs = 1000; // a desktop saves its settings some time after a change

bool IsDesktopThere(const std::string& program)
{
    return IsBelowWayland() || DesktopWindowSize(program.c_str()).has_value();
}

void RunCommand(const TWords& command, TOnTook onTook)
{
    RunProgramLater(command, [onTook = std::move(onTook)](bool worked) {
        onTook(worked ? TTook::Yes : TTook::NotYet, "");
    });
}

// `edit` changes the settings in between.
void RestartDesktop(const std::string& program, const std::string& profile,
                    std::function<void()> edit, TOnTook onTook)
{
    RunProgramLater({program, "--desktop-off"}, [program, profile, edit = std::move(edit),
                                                 onTook = std::move(onTook)](bool /*worked*/) {
        RunLater(LastWordsMs, [=] {
            edit();
            const bool started = StartProgram({program, "--desktop", "--profile=" + profile});
            onTook(started ? TTook::Yes : TTook::No, "");
        });
    });
}

// The first value of a key in a text of "key=value" lines; empty when there is none.
std::string ValueOf(const std::string& text, std::string_view key)
{
    for (const std::string_view line : SplitLines(text))
        if (line.starts_with(key) && line.substr(key.size()).starts_with('='))
            return std::string(line.substr(key.size() + 1));
    return "";
}

std::string WithValue(const std::string& text, std::string_view key, const std::string& value)
{
    std::string changed;
    for (const std::string_view line : SplitLines(text)) {
        const bool isMeant = line.starts_with(key) && line.substr(key.size()).starts_with('=');
        changed += isMeant ? FormatText("%s=%s", {key, value}) : std::string(line);
        changed += '\n';
    }
    return changed;
}

std::string ReadSettings(const std::filesystem::path& file)
try {
    return FileExists(PathText(file)) ? ReadWholeFile(PathText(file)) : "";
} catch (const EFileError&) {
    return "";
}

void WriteSettings(const std::filesystem::path& file, const std::string& text)
try {
    ReplaceWholeFile(PathText(file), text, TFlush::ToSystemCache);
} catch (const EFileError&) {
    // The desktop then starts with its old settings.
}

// Every monitor has settings of its own; the command reaches those of the first.
class TLxdeBackground : public TBackground
{
public:
    void SetPicture(const std::string& path, TColor color, TOnTook onTook) override
    {
        if (!HasProgram("pcmanfm"))
            return onTook(TTook::No, "");
        if (!IsDesktopThere("pcmanfm"))
            return onTook(TTook::NotYet, "");
        const std::size_t monitors = ReadScreens().Monitors.size();
        RunCommand({"pcmanfm", "--set-wallpaper=" + path, "--wallpaper-mode=crop"},
                   [=, onTook = std::move(onTook)](TTook took, const std::string&) {
                       if (took != TTook::Yes || monitors < 2)
                           return onTook(took, "");
                       RunLater(LastWordsMs,
                                [=] { SetOtherMonitors(path, color, monitors, onTook); });
                   });
    }

private:
    static std::filesystem::path SettingsFile(const std::filesystem::path& profile,
                                              std::size_t monitor)
    {
        return profile / ("desktop-items-" + std::to_string(monitor) + ".conf");
    }

    // The settings folder of the desktop that has just stored the picture.
    static std::filesystem::path FindProfile(const std::string& path)
    {
        for (const auto& profile : EntriesOf(UserConfigFolder() / "pcmanfm"))
            if (ValueOf(ReadSettings(SettingsFile(profile, 0)), "wallpaper") == path)
                return profile;
        return {};
    }

    static void SetOtherMonitors(const std::string& path, TColor color, std::size_t monitors,
                                 const TOnTook& onTook)
    {
        const std::filesystem::path profile = FindProfile(path);
        if (profile.empty())
            return onTook(TTook::Yes, "");
        RestartDesktop(
            "pcmanfm", profile.filename(),
            [=] {
                const std::string first = ReadSettings(SettingsFile(profile, 0));
                for (std::size_t monitor = 0; monitor < monitors; monitor++) {
                    std::string text = ReadSettings(SettingsFile(profile, monitor));
                    text = ValueOf(text, "wallpaper").empty() ? first : text;
                    text = WithValue(text, "wallpaper_mode", "crop");
                    text = WithValue(text, "desktop_bg", ColorToHexText(color));
                    WriteSettings(SettingsFile(profile, monitor),
                                  WithValue(text, "wallpaper", path));
                }
            },
            onTook);
    }
};

// Where one window lies below all monitors, LXQt stretches the picture over them all: we lay it out
// on each monitor first, with the colour between.
class TLxqtBackground : public TBackground
{
public:
    void SetPicture(const std::string& path, TColor color, TOnTook onTook) override
    {
        if (!HasProgram("pcmanfm-qt"))
            return onTook(TTook::No, "");
        if (!IsDesktopThere("pcmanfm-qt"))
            return onTook(TTook::NotYet, "");
        const TScreens screens = ReadScreens();
        if (screens.Monitors.size() < 2 || HasPicturePerMonitor() ||
            DesktopWindowSize("pcmanfm-qt") != screens.Whole)
            return Tell(path, std::move(onTook));
        WorkAside([=] { LayOut(path, screens, color); },
                  [path, onTook = std::move(onTook)] { Tell(path, onTook); });
    }

private:
    static constexpr const char* Profile = "lxqt";
    static constexpr const char* SlideshowKey = "SlideShowInterval"; // 0: off

    static void LayOut(const std::string& path, const TScreens& screens, TColor color)
    try {
        SaveBitmapFile(PictureOnMonitors(LoadImageFile(path), screens, color), path);
    } catch (const std::exception&) {
        // The desktop then stretches the picture.
    }

    static void Tell(const std::string& path, TOnTook onTook)
    {
        const TWords command = {"pcmanfm-qt", "--set-wallpaper=" + path,
                                "--wallpaper-mode=stretch"};
        if (!HasSlideshow())
            return RunCommand(command, std::move(onTook));
        RunCommand(command, [onTook = std::move(onTook)](TTook, const std::string&) {
            RestartDesktop("pcmanfm-qt", Profile, StopSlideshow, onTook);
        });
    }

    static std::filesystem::path SettingsFile()
    {
        return UserConfigFolder() / "pcmanfm-qt" / Profile / "settings.conf";
    }

    // Whether the desktop draws the picture on each monitor.
    static bool HasPicturePerMonitor()
    {
        return ValueOf(ReadSettings(SettingsFile()), "PerScreenWallpaper") == "true";
    }

    static bool HasSlideshow()
    {
        return ParseInteger(ValueOf(ReadSettings(SettingsFile()), SlideshowKey)).value_or(0) > 0;
    }

    static void StopSlideshow()
    {
        WriteSettings(SettingsFile(), WithValue(ReadSettings(SettingsFile()), SlideshowKey, "0"));
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
