// XFCE, whose desktop follows the properties of the xfconf channel "xfce4-desktop". There is one
// set of them for each monitor and workspace.
#include "uBackground.h"
#include "uFileUri.h"
#include "uScreens.h"
#include "uSessionBus.h"

#include <memory>
#include <set>

namespace murala
{

namespace
{

constexpr TBusObject Xfconf{"org.xfce.Xfconf", "/org/xfce/Xfconf", "org.xfce.Xfconf"};
constexpr const char* Channel = "xfce4-desktop";
constexpr std::string_view PictureProperty = "/last-image";
constexpr int StyleZoomed = 5;
constexpr int ColorSolid = 0;

void WriteProperty(const std::string& property, GVariant* value, TOnBusAnswer onAnswer)
{
    CallSessionBusLater(Xfconf, "SetProperty",
                        g_variant_new("(ssv)", Channel, property.c_str(), value), nullptr,
                        std::move(onAnswer));
}

void WriteProperty(const std::string& property, GVariant* value)
{
    WriteProperty(property, value, [](GVariant*) {});
}

// "/backdrop/screen0/monitorX/workspace0" and the like.
using TBackdrops = std::set<std::string>;

TBackdrops KnownBackdrops(GVariant* answer)
{
    TBackdrops backdrops;
    if (answer == nullptr) // a desktop that has never been started has no such channel
        return backdrops;
    const TVariant properties(g_variant_get_child_value(answer, 0));
    for (gsize i = 0; i < g_variant_n_children(properties.get()); i++) {
        const TVariant entry(g_variant_get_child_value(properties.get(), i));
        const char* name = nullptr;
        g_variant_get(entry.get(), "{&sv}", &name, nullptr);
        const std::string_view property = name;
        if (property.ends_with(PictureProperty))
            backdrops.emplace(property.substr(0, property.size() - PictureProperty.size()));
    }
    return backdrops;
}

// While nobody has changed the background, XFCE has no settings for it: we make them.
TBackdrops AllBackdrops(GVariant* answer)
{
    TBackdrops backdrops = KnownBackdrops(answer);
    const TScreens screens = ReadScreens();
    for (const TMonitor& monitor : screens.Monitors)
        for (int workspace = 0; workspace < screens.Workspaces; workspace++)
            backdrops.insert("/backdrop/screen0/monitor" + monitor.Name + "/workspace" +
                             std::to_string(workspace));
    return backdrops;
}

void FindBackdrops(std::function<void(const TBackdrops&)> onFound)
{
    CallSessionBusLater(
        Xfconf, "GetAllProperties", g_variant_new("(ss)", Channel, "/backdrop"), "(a{sv})",
        [onFound = std::move(onFound)](GVariant* answer) { onFound(AllBackdrops(answer)); });
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

void WriteColor(const std::string& backdrop, TColor color)
{
    WriteProperty(backdrop + "/color-style", g_variant_new_int32(ColorSolid));
    WriteProperty(backdrop + "/rgba1", RgbaValue(color));
}

// Collects the answers to several calls.
struct TAnswers {
    std::size_t Missing;
    bool Worked = true;
    TOnTook OnTook;

    void Add(bool worked)
    {
        Worked &= worked;
        if (--Missing == 0)
            OnTook(Worked ? TTook::Yes : TTook::NotYet, "");
    }
};

void WritePicture(const TBackdrops& backdrops, const std::string& path, TColor color,
                  TOnTook onTook)
{
    const auto answers =
        std::make_shared<TAnswers>(TAnswers{backdrops.size(), true, std::move(onTook)});
    for (const std::string& backdrop : backdrops) {
        WriteColor(backdrop, color);
        // A slideshow of the folder would replace the picture.
        WriteProperty(backdrop + "/backdrop-cycle-enable", g_variant_new_boolean(FALSE));
        WriteProperty(backdrop + "/image-style", g_variant_new_int32(StyleZoomed));
        WriteProperty(backdrop + std::string(PictureProperty), g_variant_new_string(path.c_str()),
                      [answers](GVariant* answer) { answers->Add(answer != nullptr); });
    }
}

class TXfceBackground : public TBackground
{
public:
    void SetPicture(const std::string& path, TColor color, TOnTook onTook) override
    {
        if (!IsText(path))
            return onTook(TTook::No, "");
        FindBackdrops([path, color, onTook = std::move(onTook)](const TBackdrops& backdrops) {
            if (backdrops.empty())
                onTook(TTook::NotYet, "");
            else
                WritePicture(backdrops, path, color, onTook);
        });
    }

    void SetColor(TColor color) override
    {
        FindBackdrops([color](const TBackdrops& backdrops) {
            for (const std::string& backdrop : backdrops)
                WriteColor(backdrop, color);
        });
    }
};

} // namespace

std::unique_ptr<TBackground> NewXfceBackground()
{
    return std::make_unique<TXfceBackground>();
}

} // namespace murala
