// Enlightenment draws over the root window. One of its modules takes a picture over D-Bus; its
// command is of no use, because that ends with 0 even when it has failed.
#include "uBackground.h"
#include "uFileUri.h"
#include "uScreens.h"
#include "uSessionBus.h"

#include <algorithm>

namespace murala
{

namespace
{

constexpr TBusObject Backgrounds{"org.enlightenment.wm.service",
                                 "/org/enlightenment/wm/RemoteObject",
                                 "org.enlightenment.wm.Desktop.Background"};
constexpr int Every = -1; // column or row of workspaces

class TEnlightenmentBackground : public TBackground
{
public:
    void SetPicture(const std::string& path, TColor /*color*/, TOnTook onTook) override
    {
        if (!IsText(path))
            return onTook(TTook::No, "");
        const auto count = static_cast<int>(ReadScreens().Monitors.size());
        SetOnMonitor(std::max(count, 1) - 1, path, std::move(onTook));
    }

private:
    // From the last monitor to the first. "Del" takes away the picture of one workspace, which
    // would hide ours; where there is none it fails, and that does not matter.
    static void SetOnMonitor(int monitor, const std::string& path, TOnTook onTook)
    {
        CallSessionBusLater(Backgrounds, "Del", g_variant_new("(iii)", monitor, 0, 0), nullptr,
                            [](GVariant*) {});
        CallSessionBusLater(
            Backgrounds, "Add", g_variant_new("(iiis)", monitor, Every, Every, path.c_str()), "()",
            [=, onTook = std::move(onTook)](GVariant* answer) {
                if (answer == nullptr)
                    return onTook(TTook::NotYet, "Load the module \"DBus Extension\" in the "
                                                 "settings of Enlightenment.");
                if (monitor > 0)
                    return SetOnMonitor(monitor - 1, path, onTook);
                onTook(TTook::Yes, "");
            });
    }
};

} // namespace

std::unique_ptr<TBackground> NewEnlightenmentBackground()
{
    return std::make_unique<TEnlightenmentBackground>();
}

} // namespace murala
