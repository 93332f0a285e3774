#include "uColorText.h"
#include "uDesktop.h"
#include "uDoor.h"
#include "uHiddenWindow.h"
#include "uPath.h"
#include "uWindowsHandles.h"

#include <array>
#include <utility>

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
    // Windows keeps the file in memory; a call without names writes it to the disk.
    WritePrivateProfileStringA(nullptr, nullptr, nullptr, file.c_str());
}

// What tells one arrangement of monitors from another.
struct TLayout {
    TRect Screens;
    TSize Primary;
    int Count = 0;
    friend bool operator==(const TLayout&, const TLayout&) = default;
};

TLayout ReadLayout()
{
    const int left = GetSystemMetrics(SM_XVIRTUALSCREEN), top = GetSystemMetrics(SM_YVIRTUALSCREEN);
    return {{left, top, left + GetSystemMetrics(SM_CXVIRTUALSCREEN),
             top + GetSystemMetrics(SM_CYVIRTUALSCREEN)},
            {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)},
            GetSystemMetrics(SM_CMONITORS)};
}

// An invisible window: the system tells every window when the monitors change.
class TScreenListener
{
public:
    explicit TScreenListener(std::function<void()> onChange)
        : m_onChange(std::move(onChange)), m_window(NewHiddenWindow("TMuScreens", OnMessage, this))
    {
    }
    TScreenListener(const TScreenListener&) = delete;
    TScreenListener& operator=(const TScreenListener&) = delete;
    ~TScreenListener() = default;

private:
    static constexpr UINT_PTR TimerId = 1;
    static constexpr UINT SettlingMs = 1000; // one change of the monitors sends several messages

    static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        auto* self = reinterpret_cast<TScreenListener*>(GetWindowLongPtrA(window, GWLP_USERDATA));
        if (message == WM_DISPLAYCHANGE)
            SetTimer(window, TimerId, SettlingMs, nullptr);
        else if (message == WM_TIMER && self != nullptr)
            NoThrow([=] { self->Settled(); });
        return DefWindowProcA(window, message, wParam, lParam);
    }

    void Settled()
    {
        KillTimer(m_window.get(), TimerId);
        const TLayout layout = ReadLayout();
        if (std::exchange(m_layout, layout) != layout)
            m_onChange();
    }

    std::function<void()> m_onChange;
    TLayout m_layout = ReadLayout();
    TWindow m_window;
};

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

    void ListenToScreens(std::function<void()> onChange) override
    {
        m_screens = std::make_unique<TScreenListener>(std::move(onChange));
    }

    void WriteTileWallpaper(int mode) override
    {
        if (mode == 0)
            StoreTileFlag("1");
        else if (mode == 1)
            StoreTileFlag("0");
    }

    void Install(const TScreenPictures& pictures, TColor color, TOnInstalled onInstalled) override
    {
        const bool took = SetWallpaperFile(pictures.front().Path);
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

private:
    std::unique_ptr<TScreenListener> m_screens;
};

} // namespace

std::unique_ptr<TDesktop> NewDesktop(const std::string& /*programFolder*/)
{
    return std::make_unique<TWindowsDesktop>();
}

} // namespace murala
