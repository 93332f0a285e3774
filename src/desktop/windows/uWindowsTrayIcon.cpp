#include "uDesktopWindows.h"
#include "uHiddenWindow.h"
#include "uInstanceLink.h"
#include "uText.h"
#include "uTrayIcon.h"
#include "uWindowsHandles.h"
#include "uWindowsMenu.h"

#include <shellapi.h>

#include <algorithm>
#include <cstddef>

namespace murala
{

namespace
{

constexpr const char* WindowClass = "TMuTrayIcon";
constexpr UINT IconId = 1;
constexpr UINT CallbackMessage = WM_USER + 2;

// The record of the first shells, which all know: up to a tip of 64 bytes. 88 bytes in a 32-bit
// program.
struct TNotifyRecord {
    DWORD cbSize;
    HWND hWnd;
    UINT uID;
    UINT uFlags;
    UINT uCallbackMessage;
    HICON hIcon;
    CHAR szTip[64];
};
static_assert(sizeof(TNotifyRecord) == (sizeof(void*) == 4 ? 88 : 104));
static_assert(offsetof(TNotifyRecord, szTip) == offsetof(NOTIFYICONDATAA, szTip));

TIcon NewIcon(const TBitmap& picture)
{
    TPixel* pixels = nullptr;
    const auto color = NewPixels({picture.Width(), picture.Height()}, pixels);
    const TGdiObject<HBITMAP> mask(CreateBitmap(picture.Width(), picture.Height(), 1, 1, nullptr));
    if (!color || !mask)
        return nullptr;
    std::copy_n(picture.Row(0), std::ptrdiff_t{picture.Width()} * picture.Height(), pixels);
    ICONINFO info{};
    info.fIcon = TRUE;
    info.hbmColor = color.get();
    info.hbmMask = mask.get();
    return TIcon(CreateIconIndirect(&info));
}

class TWindowsTrayArea : public TTrayArea
{
public:
    TWindowsTrayArea() : m_window(NewHiddenWindow(WindowClass, OnMessage, this)) {}
    TWindowsTrayArea(const TWindowsTrayArea&) = delete;
    TWindowsTrayArea& operator=(const TWindowsTrayArea&) = delete;
    ~TWindowsTrayArea() override
    {
        if (m_isAdded)
            Remove();
    }

    void Listen(TTrayEvents* events) override { m_events = events; }
    // Only trying tells.
    TTrayState State() override { return TTrayState::There; }
    bool Add(const TTrayLook& look) override
    {
        // While the user logs in, the shell may answer too late, though it takes the icon.
        const bool isAdded = Notify(NIM_ADD, look) || Notify(NIM_MODIFY, look);
        m_isAdded = m_isAdded || isAdded;
        return isAdded;
    }
    bool Modify(const TTrayLook& look) override { return Notify(NIM_MODIFY, look); }
    void Remove() override
    {
        Notify(NIM_DELETE, {});
        m_isAdded = false;
    }

    TMenuMetrics MenuMetrics() override { return SystemMenuMetrics(); }
    std::optional<TMenuTarget> ShowMenu(TTrayModel& model, TPoint place) override
    {
        // Without the foreground the menu would stay when the user clicks elsewhere, and keys would
        // go to another program.
        if (!HasForeground())
            SetForegroundWindow(m_window.get());
        TMenuTarget chosen = TrackMenu(model, place, m_window.get());
        PostMessageA(m_window.get(), WM_NULL, 0, 0);
        if (const HWND main = FindWindowA(MainWindowClass, MainWindowCaption))
            PostMessageA(main, WM_NULL, 0, 0);
        return chosen;
    }

private:
    // With a window that keys go to: a program that was started hidden may have the foreground,
    // too.
    static bool HasForeground()
    {
        DWORD process = 0;
        const HWND window = GetForegroundWindow();
        GetWindowThreadProcessId(window, &process);
        return process == GetCurrentProcessId() && IsWindowVisible(window) != FALSE;
    }

    bool Notify(DWORD message, const TTrayLook& look)
    {
        TNotifyRecord record{};
        record.cbSize = sizeof record;
        record.hWnd = m_window.get();
        record.uID = IconId;
        record.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP;
        record.uCallbackMessage = CallbackMessage;
        record.hIcon = IconOf(look);
        const std::string hint = WithoutAmpersands(look.Hint);
        const std::string_view tip = Tip(hint);
        tip.copy(record.szTip, tip.size());
        return Shell_NotifyIconA(message, reinterpret_cast<NOTIFYICONDATAA*>(&record)) != FALSE;
    }

    // Shells differ in what they take an "&" in a tip for - a letter, the sign before an access
    // key, or both, one after the other - so that no number of them shows as one everywhere.
    static std::string WithoutAmpersands(std::string hint)
    {
        std::ranges::replace(hint, '&', '+');
        return hint;
    }

    // As much as the record holds, whole characters.
    static std::string_view Tip(const std::string& hint)
    {
        std::string_view tip = FirstCharacters(hint, sizeof(TNotifyRecord::szTip) - 1);
        for (std::size_t n = tip.size(); tip.size() >= sizeof(TNotifyRecord::szTip);)
            tip = FirstCharacters(hint, --n);
        return tip;
    }

    // Made once for each picture and size; the shell keeps a copy.
    HICON IconOf(const TTrayLook& look)
    {
        const int side = GetSystemMetricsForDpi(SM_CXSMICON, TaskBarDpi());
        if (look.Icon != m_picture || side != m_side) {
            m_icon = look.Icon ? NewIcon(ImageOfSide(*look.Icon, side)) : TIcon();
            m_picture = look.Icon;
            m_side = side;
        }
        return m_icon.get();
    }

    static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        const auto* self =
            reinterpret_cast<TWindowsTrayArea*>(GetWindowLongPtrA(window, GWLP_USERDATA));
        if (message == WM_QUERYENDSESSION)
            return TRUE;
        if (message != CallbackMessage || self == nullptr || self->m_events == nullptr)
            return DefWindowProcA(window, message, wParam, lParam);
        if (lParam == WM_LBUTTONUP) {
            self->m_events->TrayLeftClick();
        } else if (lParam == WM_RBUTTONUP) {
            POINT cursor{};
            GetCursorPos(&cursor);
            self->m_events->TrayRightClick({cursor.x, cursor.y});
        }
        return 0;
    }

    TWindow m_window;
    TTrayEvents* m_events = nullptr;
    std::shared_ptr<const TIconImage> m_picture;
    int m_side = 0; // of the icon, in pixels
    TIcon m_icon;
    bool m_isAdded = false;
};

} // namespace

std::unique_ptr<TTrayArea> NewTrayArea()
{
    return std::make_unique<TWindowsTrayArea>();
}

} // namespace murala
