#include "uScreenSaver.h"

#include "uSessionBus.h"
#include "uX11.h"

#include <X11/extensions/scrnsaver.h>

#include <algorithm>

namespace murala
{

namespace
{

constexpr TBusObject Savers[] = {
    {"org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver", "org.freedesktop.ScreenSaver"},
    {"org.gnome.ScreenSaver", "/org/gnome/ScreenSaver", "org.gnome.ScreenSaver"},
    {"org.cinnamon.ScreenSaver", "/org/cinnamon/ScreenSaver", "org.cinnamon.ScreenSaver"},
    {"org.mate.ScreenSaver", "/org/mate/ScreenSaver", "org.mate.ScreenSaver"},
    {"org.xfce.ScreenSaver", "/org/xfce/ScreenSaver", "org.xfce.ScreenSaver"},
};

bool IsActive(const TBusObject& saver)
{
    const TVariant answer = AskRunningProgram(saver, "GetActive", "(b)");
    gboolean active = FALSE;
    if (answer)
        g_variant_get(answer.get(), "(b)", &active);
    return active != FALSE;
}

// The X server's own screen saver.
bool IsServerSaving()
{
    if (IsBelowWayland())
        return false;
    int ignored = 0;
    const TDisplay display = OpenDisplay();
    if (!display || XScreenSaverQueryExtension(display.get(), &ignored, &ignored) == False)
        return false;
    const TXOwned<XScreenSaverInfo> info(XScreenSaverAllocInfo());
    return info &&
           XScreenSaverQueryInfo(display.get(), DefaultRootWindow(display.get()), info.get()) !=
               0 &&
           info->state == ScreenSaverOn;
}

class TLinuxScreenSaver : public TScreenSaver
{
public:
    bool IsRunning() override { return IsServerSaving() || std::ranges::any_of(Savers, IsActive); }
};

} // namespace

std::unique_ptr<TScreenSaver> NewScreenSaver()
{
    return std::make_unique<TLinuxScreenSaver>();
}

} // namespace murala
