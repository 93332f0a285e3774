#include "uDesktopWindows.h"
#include "uIconRects.h"
#include "uIconView.h"
#include "uSendMessage.h"
#include "uTaskBar.h"
#include "uWindowsHandles.h"

#include <commctrl.h>

namespace murala
{

namespace
{

#ifndef LVS_EX_REGIONAL
constexpr LPARAM LVS_EX_REGIONAL = 0x200;
#endif

TRect FromRect(const RECT& rect)
{
    return {static_cast<int>(rect.left), static_cast<int>(rect.top), static_cast<int>(rect.right),
            static_cast<int>(rect.bottom)};
}

using TRegion = TGdiObject<HRGN>;

std::vector<TRect> RegionRects(HRGN region)
{
    std::vector<TRect> rects;
    const DWORD size = GetRegionData(region, 0, nullptr);
    std::vector<std::byte> buffer(size);
    auto* data = reinterpret_cast<RGNDATA*>(buffer.data());
    if (size == 0 || GetRegionData(region, size, data) == 0)
        return rects;
    const auto* first = reinterpret_cast<const RECT*>(data->Buffer);
    for (const RECT* rect = first; rect != first + data->rdh.nCount; rect++)
        rects.push_back(FromRect(*rect));
    return rects;
}

// While it lives the list has the style in which it gives itself a region of its icons and labels.
// Only older versions of the shell's controls know that style.
class TRegionalStyle
{
public:
    explicit TRegionalStyle(HWND list)
        : m_list(list), m_before(SendToProgram(list, LVM_GETEXTENDEDLISTVIEWSTYLE))
    {
        Set(AllBits);
    }
    TRegionalStyle(const TRegionalStyle&) = delete;
    TRegionalStyle& operator=(const TRegionalStyle&) = delete;
    ~TRegionalStyle() { Set(m_before); }

private:
    static constexpr LPARAM AllBits = 0xFFFFFFFF; // the mask chooses

    void Set(LPARAM style)
    {
        SendToProgram(m_list, LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_REGIONAL, style);
    }

    HWND m_list;
    LRESULT m_before;
};

class TWindowsIconView : public TIconView
{
public:
    bool CanBeAsked() override { return FindDesktopListView() != nullptr; }

    TColor GetIconTextBackColor() override
    {
        const HWND list = FindDesktopListView();
        return list != nullptr ? static_cast<TColor>(SendToProgram(list, LVM_GETTEXTBKCOLOR)) : 0;
    }

    void SetIconTextBackColor(TColor color) override
    {
        const HWND list = FindDesktopListView();
        if (list == nullptr)
            return;
        SendToProgram(list, LVM_SETTEXTBKCOLOR, 0, static_cast<LPARAM>(color));
        const LRESULT count = SendToProgram(list, LVM_GETITEMCOUNT);
        SendToProgram(list, LVM_REDRAWITEMS, 0, count - 1);
        UpdateWindow(list);
    }

    TIconRegion GetIconRegion() override
    {
        const HWND list = FindDesktopListView();
        if (list == nullptr)
            return {{}, "The desktop shows no icons."};
        if (!AskProgram(list, WM_NULL))
            return {{}, SilentDesktopText};
        {
            const TRegionalStyle style(list);
            const TRegion region(CreateRectRgn(0, 0, 0, 0));
            if (GetWindowRgn(list, region.get()) != ERROR)
                return {RegionRects(region.get()), {}};
        }
        return AskForIconRects(list);
    }
};

class TWindowsTaskBar : public TTaskBar
{
public:
    TRect GetTaskBarRect() override
    {
        const HWND bar = FindTaskBar();
        RECT rect{};
        if (bar == nullptr || GetWindowRect(bar, &rect) == FALSE)
            throw ETaskBarMissing();
        return FromRect(rect);
    }
};

} // namespace

std::unique_ptr<TIconView> NewIconView()
{
    return std::make_unique<TWindowsIconView>();
}

std::unique_ptr<TTaskBar> NewTaskBar()
{
    return std::make_unique<TWindowsTaskBar>();
}

} // namespace murala
