#include "uColorText.h"
#include "uDesktop.h"
#include "uPath.h"
#include "uWindowsHandles.h"

#include <array>

namespace murala
{

namespace
{

std::string WindowsFolder()
{
    std::array<char, MAX_PATH> folder{};
    const UINT length = GetWindowsDirectoryA(folder.data(), static_cast<UINT>(folder.size()));
    return {folder.data(), length};
}

bool SetWallpaperFile(std::string path)
{
    return SystemParametersInfoA(SPI_SETDESKWALLPAPER, 1, path.data(),
                                 SPIF_UPDATEINIFILE | SPIF_SENDWININICHANGE) != 0;
}

void StoreTileFlag(const std::string& text)
{
    const TKey key = OpenKey(HKEY_CURRENT_USER, "Control Panel\\desktop", KEY_SET_VALUE);
    if (key)
        RegSetValueExA(key.get(), "TileWallpaper", 0, REG_SZ,
                       reinterpret_cast<const BYTE*>(text.c_str()),
                       static_cast<DWORD>(text.size() + 1));
}

void StoreDesktopColorText(const std::string& text)
{
    const std::string file = JoinPath(WindowsFolder(), "win.ini");
    WritePrivateProfileStringA("colors", "Background", text.c_str(), file.c_str());
    // With no names the call writes what it holds back.
    WritePrivateProfileStringA(nullptr, nullptr, nullptr, file.c_str());
}

class TWindowsDesktop : public TDesktop
{
public:
    TSize ScreenSize() override
    {
        return {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    }

    int ScreenBitsPerPixel() override
    {
        const TScreenContext screen;
        return GetDeviceCaps(screen.Get(), BITSPIXEL);
    }

    void WriteTileWallpaper(int mode) override
    {
        if (mode == 0)
            StoreTileFlag("1");
        else if (mode == 1)
            StoreTileFlag("0");
    }

    void Install(const std::string& path, TColor color, TOnInstalled onInstalled) override
    {
        const bool took = SetWallpaperFile(path);
        ApplyDesktopColor(color);
        onInstalled({took, ""});
    }

    void ApplyDesktopColor(TColor color) override
    {
        StoreDesktopColorText(ColorToIniText(color));
        const int element = COLOR_BACKGROUND;
        const COLORREF value = color;
        SetSysColors(1, &element, &value);
    }

    TColor DesktopColor() override { return GetSysColor(COLOR_BACKGROUND); }
};

} // namespace

std::unique_ptr<TDesktop> NewDesktop(const std::string& /*programFolder*/)
{
    return std::make_unique<TWindowsDesktop>();
}

} // namespace murala
