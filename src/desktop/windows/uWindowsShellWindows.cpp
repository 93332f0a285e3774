#include "uSendMessage.h"
#include "uShellWindows.h"

#include <array>

namespace murala
{

namespace
{

HWND Handle(TWindowId window)
{
    return reinterpret_cast<HWND>(window);
}

TWindowId Id(HWND window)
{
    return reinterpret_cast<TWindowId>(window);
}

TRect FromRect(const RECT& rect)
{
    return {static_cast<int>(rect.left), static_cast<int>(rect.top), static_cast<int>(rect.right),
            static_cast<int>(rect.bottom)};
}

struct TRegionDelete {
    using pointer = HRGN;
    void operator()(HRGN region) const noexcept { DeleteObject(region); }
};
using TRegion = std::unique_ptr<HRGN, TRegionDelete>;

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

class TWindowsShellWindows : public TShellWindows
{
public:
    TWindowId DesktopWindow() override { return Id(GetDesktopWindow()); }
    TWindowId FirstChild(TWindowId window) override
    {
        return Id(GetWindow(Handle(window), GW_CHILD));
    }
    TWindowId NextSibling(TWindowId window) override
    {
        return Id(GetWindow(Handle(window), GW_HWNDNEXT));
    }

    std::string ClassName(TWindowId window) override
    {
        std::array<char, 80> name{};
        const int length =
            GetClassNameA(Handle(window), name.data(), static_cast<int>(name.size()));
        return {name.data(), static_cast<std::size_t>(length)};
    }

    std::optional<TRect> WindowRect(TWindowId window) override
    {
        RECT rect{};
        return GetWindowRect(Handle(window), &rect) != FALSE ? std::optional(FromRect(rect))
                                                             : std::nullopt;
    }

    std::vector<TRect> WindowRegion(TWindowId window) override
    {
        const TRegion region(CreateRectRgn(0, 0, 0, 0));
        GetWindowRgn(Handle(window), region.get());
        return RegionRects(region.get());
    }

    std::intptr_t Send(TWindowId window, unsigned message, std::uintptr_t wParam,
                       std::intptr_t lParam) override
    {
        return SendToProgram(Handle(window), message, wParam, lParam);
    }

    void Update(TWindowId window) override { UpdateWindow(Handle(window)); }
};

} // namespace

std::unique_ptr<TShellWindows> NewShellWindows()
{
    return std::make_unique<TWindowsShellWindows>();
}

} // namespace murala
