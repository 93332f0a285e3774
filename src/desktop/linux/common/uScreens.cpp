#include "uScreens.h"

#include "uCompose.h"
#include "uMonitorWatch.h"
#include "uX11.h"

#include <X11/Xatom.h>
#include <X11/extensions/Xrandr.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <optional>
#include <utility>

namespace murala
{

namespace
{

constexpr TSize UsualSize{1920, 1080};

struct TMonitorsFree {
    void operator()(XRRMonitorInfo* monitors) const noexcept { XRRFreeMonitors(monitors); }
};

bool KnowsMonitors(Display* display)
{
    int ignored = 0;
    int major = 0;
    int minor = 0;
    return XRRQueryExtension(display, &ignored, &ignored) != False &&
           XRRQueryVersion(display, &major, &minor) != 0 && (major > 1 || minor >= 5);
}

std::string AtomName(Display* display, Atom atom)
{
    const TXOwned<char> name(XGetAtomName(display, atom));
    return name ? name.get() : "";
}

std::vector<TMonitor> ReadMonitors(Display* display)
{
    std::vector<TMonitor> monitors;
    int count = 0;
    const std::unique_ptr<XRRMonitorInfo, TMonitorsFree> found(
        KnowsMonitors(display) ? XRRGetMonitors(display, DefaultRootWindow(display), True, &count)
                               : nullptr);
    const XRRMonitorInfo* end = found.get() + (found ? count : 0); // the count of a failure is -1
    for (const XRRMonitorInfo* each = found.get(); each != end; each++)
        monitors.push_back({AtomName(display, each->name),
                            {each->x, each->y, each->x + each->width, each->y + each->height},
                            each->primary != False});
    if (monitors.empty()) {
        const int screen = DefaultScreen(display);
        const TRect whole{0, 0, DisplayWidth(display, screen), DisplayHeight(display, screen)};
        monitors.push_back({"0", whole, true});
    }
    return monitors;
}

// The mode that the kernel names first for a connected screen, e.g. "1920x1080".
std::optional<TSize> FirstConnectedScreen()
{
    std::error_code error;
    for (const auto& connector : std::filesystem::directory_iterator("/sys/class/drm", error)) {
        std::string status;
        std::string mode;
        std::ifstream(connector.path() / "status") >> status;
        std::ifstream(connector.path() / "modes") >> mode;
        TSize size;
        if (status == "connected" &&
            std::sscanf(mode.c_str(), "%dx%d", &size.Width, &size.Height) == 2 && size.Width > 0 &&
            size.Height > 0)
            return size;
    }
    return std::nullopt;
}

} // namespace

TScreens ReadScreens()
{
    TScreens screens;
    const TSharedDisplay display = SharedDisplay();
    if (!display)
        return screens;
    TXErrorGuard guard(display.get());
    const Window root = DefaultRootWindow(display.get());
    screens.Monitors = ReadMonitors(display.get());
    const auto workspaces =
        ReadProperty32(display.get(), root, "_NET_NUMBER_OF_DESKTOPS", XA_CARDINAL);
    screens.Workspaces = static_cast<int>(std::clamp(workspaces, 1UL, 64UL));
    const int depth = DefaultDepth(display.get(), DefaultScreen(display.get()));
    screens.BitsPerPixel = depth > 16 ? 32 : depth;
    for (const TMonitor& monitor : screens.Monitors) {
        screens.Whole.Width = std::max(screens.Whole.Width, monitor.Place.Right);
        screens.Whole.Height = std::max(screens.Whole.Height, monitor.Place.Bottom);
    }
    return screens;
}

namespace
{

// The middle of the picture in the proportions of `size`, then in that size.
TBitmap Covering(const TBitmap& picture, TSize size)
{
    const std::int64_t width = picture.Width();
    const std::int64_t height = picture.Height();
    const auto cutWidth = static_cast<int>(std::min(width, height * size.Width / size.Height));
    const auto cutHeight = static_cast<int>(std::min(height, width * size.Height / size.Width));
    TBitmap cut(std::max(cutWidth, 1), std::max(cutHeight, 1));
    const int left = (picture.Width() - cut.Width()) / 2;
    const int top = (picture.Height() - cut.Height()) / 2;
    for (int y = 0; y < cut.Height(); y++)
        std::copy_n(picture.Row(top + y) + left, cut.Width(), cut.Row(y));
    if (cut.Size() != size)
        ResizeBitmap(cut, size.Width, size.Height);
    return cut;
}

} // namespace

TBitmap PictureOnMonitors(const TBitmap& picture, const TScreens& screens, TColor color)
{
    TBitmap all(screens.Whole.Width, screens.Whole.Height);
    std::fill_n(all.Row(0), static_cast<std::size_t>(all.Width()) * all.Height(),
                ColorToPixel(color));
    for (const TMonitor& monitor : screens.Monitors) {
        const TRect& place = monitor.Place;
        if (place.Width() <= 0 || place.Height() <= 0 || place.Left < 0 || place.Top < 0)
            continue;
        const TBitmap fitted = Covering(picture, {place.Width(), place.Height()});
        for (int y = 0; y < fitted.Height(); y++)
            std::copy_n(fitted.Row(y), fitted.Width(), all.Row(place.Top + y) + place.Left);
    }
    return all;
}

TScreenWatch::TScreenWatch() = default;
TScreenWatch::~TScreenWatch() = default;

// A server below a compositor may come and go; its connection is not kept.
void TScreenWatch::Connect()
{
    if (IsBelowWayland()) {
        if (!m_wayland)
            m_wayland = ConnectToWayland();
    } else if (!m_display) {
        m_display = SharedDisplay();
    }
}

TSize TScreenWatch::PrimarySize()
{
    Connect();
    if (m_wayland)
        if (const auto size = m_wayland->PrimarySize())
            return *size;
    const auto monitors = ReadScreens().Monitors;
    if (monitors.empty())
        return FirstConnectedScreen().value_or(UsualSize);
    const auto primary = std::ranges::find_if(monitors, &TMonitor::Primary);
    const TRect& place = primary == monitors.end() ? monitors[0].Place : primary->Place;
    return {place.Width(), place.Height()};
}

// A Wayland compositor always draws with all colours.
int TScreenWatch::BitsPerPixel()
{
    Connect();
    return IsBelowWayland() ? 32 : ReadScreens().BitsPerPixel;
}

std::vector<TRect> TScreenWatch::Places()
{
    if (m_wayland)
        return m_wayland->Places();
    std::vector<TRect> places;
    for (const TMonitor& monitor : ReadScreens().Monitors)
        places.push_back(monitor.Place);
    return places;
}

void TScreenWatch::Listen(std::function<void()> onChange)
{
    m_onChange = std::move(onChange);
    Connect();
    m_places = Places();
    if (m_wayland)
        m_wayland->Listen([this] { Settled(); });
    else if (!IsBelowWayland() && !m_watch)
        m_watch = std::make_unique<TMonitorWatch>([this] { Settled(); });
}

// A monitor that was only switched off and on again is no change.
void TScreenWatch::Settled()
{
    const std::vector<TRect> places = Places();
    if (!places.empty() && std::exchange(m_places, places) != places)
        m_onChange();
}

} // namespace murala
