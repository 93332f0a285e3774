// XFCE, whose desktop follows the properties of the xfconf channel "xfce4-desktop". There is one
// set of them for each monitor and workspace.
#include "uBackground.h"
#include "uScreens.h"
#include "uSessionBus.h"

#include <algorithm>
#include <map>

namespace murala
{

namespace
{

constexpr TBusObject Xfconf{"org.xfce.Xfconf", "/org/xfce/Xfconf", "org.xfce.Xfconf"};
constexpr const char* Channel = "xfce4-desktop";
constexpr std::string_view PictureProperty = "/last-image";
constexpr int StyleZoomed = 5;
constexpr int ColorSolid = 0;

bool WriteProperty(const std::string& property, GVariant* value)
{
    return CallSessionBus(Xfconf, "SetProperty",
                          g_variant_new("(ssv)", Channel, property.c_str(), value)) != nullptr;
}

// "/backdrop/screen0/monitorX/workspace0" and the like, and the picture that is set there.
using TBackdrops = std::map<std::string, std::string>;

TBackdrops KnownBackdrops()
{
    TBackdrops backdrops;
    const TVariant answer = CallSessionBus(Xfconf, "GetAllProperties",
                                           g_variant_new("(ss)", Channel, "/backdrop"), "(a{sv})");
    if (!answer)
        return backdrops;
    const TVariant properties(g_variant_get_child_value(answer.get(), 0));
    for (gsize i = 0; i < g_variant_n_children(properties.get()); i++) {
        const TVariant entry(g_variant_get_child_value(properties.get(), i));
        const char* name = nullptr;
        GVariant* value = nullptr;
        g_variant_get(entry.get(), "{&sv}", &name, &value);
        const TVariant owner(value);
        const std::string_view property = name;
        if (property.ends_with(PictureProperty) &&
            g_variant_is_of_type(value, G_VARIANT_TYPE_STRING) != FALSE)
            backdrops.emplace(property.substr(0, property.size() - PictureProperty.size()),
                              g_variant_get_string(value, nullptr));
    }
    return backdrops;
}

// A desktop whose background nobody has changed yet has no settings: they are made.
TBackdrops AllBackdrops()
{
    TBackdrops backdrops = KnownBackdrops();
    const TScreens screens = ReadScreens();
    for (const TMonitor& monitor : screens.Monitors)
        for (int workspace = 0; workspace < screens.Workspaces; workspace++)
            backdrops.emplace("/backdrop/screen0/monitor" + monitor.Name + "/workspace" +
                                  std::to_string(workspace),
                              "");
    return backdrops;
}

GVariant* RgbaValue(TColor color)
{
    GVariantBuilder channels;
    g_variant_builder_init(&channels, G_VARIANT_TYPE("av"));
    for (unsigned shift = 0; shift <= 16U; shift += 8U)
        g_variant_builder_add(&channels, "v",
                              g_variant_new_double(((color >> shift) & 0xFFU) / 255.0));
    g_variant_builder_add(&channels, "v", g_variant_new_double(1.0));
    return g_variant_builder_end(&channels);
}

class TXfceBackground : public TBackground
{
public:
    std::optional<bool> IsStuckTo(const std::string& path) override
    {
        return std::ranges::any_of(KnownBackdrops(),
                                   [&](const auto& backdrop) { return backdrop.second == path; });
    }

    bool SetPicture(const std::string& path, TColor color) override
    {
        if (!IsText(path))
            return false;
        const auto backdrops = AllBackdrops();
        bool worked = !backdrops.empty();
        for (const auto& [backdrop, picture] : backdrops) {
            WriteColor(backdrop, color);
            WriteProperty(backdrop + "/image-style", g_variant_new_int32(StyleZoomed));
            worked &= WriteProperty(backdrop + std::string(PictureProperty),
                                    g_variant_new_string(path.c_str()));
        }
        return worked;
    }

    std::optional<TColor> Color() override { return std::nullopt; }

    void SetColor(TColor color) override
    {
        for (const auto& [backdrop, picture] : AllBackdrops())
            WriteColor(backdrop, color);
    }

private:
    static void WriteColor(const std::string& backdrop, TColor color)
    {
        WriteProperty(backdrop + "/color-style", g_variant_new_int32(ColorSolid));
        WriteProperty(backdrop + "/rgba1", RgbaValue(color));
    }
};

} // namespace

std::unique_ptr<TBackground> NewXfceBackground()
{
    return std::make_unique<TXfceBackground>();
}

} // namespace murala
