// The desktop of a Linux session. What Windows keeps in its registry and in "win.ini" is kept under
// the same names in a file of Murala's own.
#include "uBackground.h"
#include "uColorText.h"
#include "uDesktop.h"
#include "uIniFile.h"
#include "uPath.h"
#include "uSafeFile.h"
#include "uScreens.h"

#include <filesystem>

namespace murala
{

namespace
{

constexpr std::string_view StoreName = "Murala.desktop.ini";
constexpr std::string_view DesktopSection = "Control Panel\\desktop";
constexpr std::string_view ColorsSection = "colors";

// The same file under a second name, for desktops that would take the first one for nothing new.
// Empty when it cannot be made.
std::string MakeTwin(const std::string& path)
{
    const std::string extension = ExtensionPart(path);
    const std::string twin = path.substr(0, path.size() - extension.size()) + "~" + extension;
    std::error_code error;
    std::filesystem::remove(twin, error);
    std::filesystem::create_hard_link(path, twin, error);
    if (error)
        std::filesystem::copy_file(path, twin, error);
    return error ? "" : twin;
}

class TLinuxDesktop : public TDesktop
{
public:
    explicit TLinuxDesktop(const std::string& programFolder)
        : m_storeFile(JoinPath(programFolder, StoreName)),
          m_background(NewBackground(RunningSession()))
    {
    }

    TSize ScreenSize() override { return PrimaryScreenSize(); }
    int ScreenBitsPerPixel() override { return ReadScreens().BitsPerPixel; }

    // The picture is as large as the screen: there is nothing to tile.
    void WriteTileWallpaper(int /*mode*/) override {}

    void Install(const std::string& path, TColor color, TOnInstalled onInstalled) override
    {
        StoreColor(color);
        onInstalled(SetWallpaperFile(path, color));
    }

    void ApplyDesktopColor(TColor color) override
    {
        StoreColor(color);
        m_background->SetColor(color);
    }

    TColor DesktopColor() override
    {
        const auto color = m_background->Color();
        return color ? *color : StoredColor();
    }

private:
    bool SetWallpaperFile(const std::string& path, TColor color)
    {
        if (!FileExists(path))
            return false;
        const bool stuck =
            m_background->IsStuckTo(path).value_or(Read(DesktopSection, "Wallpaper") == path);
        const std::string name = stuck ? MakeTwin(path) : path;
        if (name.empty() || !m_background->SetPicture(name, color))
            return false;
        Store(DesktopSection, "Wallpaper", name);
        return true;
    }

    void StoreColor(TColor color) { Store(ColorsSection, "Background", ColorToIniText(color)); }

    TColor StoredColor() const
    try {
        return IniTextToColor(Read(ColorsSection, "Background"));
    } catch (const EConvertError&) {
        return 0;
    }

    std::string Read(std::string_view section, std::string_view key) const
    try {
        return TIniFile::Load(m_storeFile).ReadText(section, key, "");
    } catch (const EFileError&) {
        return "";
    }

    void Store(std::string_view section, std::string_view key, const std::string& text)
    try {
        TIniFile file = TIniFile::Load(m_storeFile);
        if (file.ReadText(section, key, "") == text)
            return;
        file.Write(section, key, text);
        file.Save(m_storeFile);
    } catch (const EFileError&) {
        // A folder that cannot be written to costs the stored value, not the wallpaper.
    }

    std::string m_storeFile;
    std::unique_ptr<TBackground> m_background;
};

} // namespace

std::unique_ptr<TDesktop> NewDesktop(const std::string& programFolder)
{
    return std::make_unique<TLinuxDesktop>(programFolder);
}

} // namespace murala
