#include "uShellWindows.h"

namespace murala
{

namespace
{

// Icons on a Linux desktop are no windows that another program could reach.
class TNoShellWindows : public TShellWindows
{
public:
    TWindowId DesktopWindow() override { return 0; }
    TWindowId FirstChild(TWindowId /*window*/) override { return 0; }
    TWindowId NextSibling(TWindowId /*window*/) override { return 0; }
    std::string ClassName(TWindowId /*window*/) override { return ""; }
    std::optional<TRect> WindowRect(TWindowId /*window*/) override { return std::nullopt; }
    std::vector<TRect> WindowRegion(TWindowId /*window*/) override { return {}; }
    std::intptr_t Send(TWindowId /*window*/, unsigned /*message*/, std::uintptr_t /*wParam*/,
                       std::intptr_t /*lParam*/) override
    {
        return 0;
    }
    void Update(TWindowId /*window*/) override {}
};

} // namespace

std::unique_ptr<TShellWindows> NewShellWindows()
{
    return std::make_unique<TNoShellWindows>();
}

} // namespace murala
