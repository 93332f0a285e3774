// KDE Plasma, by a script that its shell runs.
#include "uBackground.h"
#include "uSessionBus.h"
#include "uText.h"

namespace murala
{

namespace
{

constexpr TBusObject PlasmaShell{"org.kde.plasmashell", "/PlasmaShell", "org.kde.PlasmaShell"};

// What every script does on each screen's desktop. Kept to old JavaScript for older shells.
constexpr std::string_view ForEachDesktop = "var all = desktops();"
                                            "for (var i = 0; i < all.length; i++) {"
                                            " var d = all[i];"
                                            " %s"
                                            " d.currentConfigGroup ="
                                            " ['Wallpaper', 'org.kde.image', 'General'];"
                                            " %s"
                                            "}";
// FillMode 2 fills the screen and keeps the proportions.
constexpr std::string_view WritePicture = "d.writeConfig('Image', '%s');"
                                          " d.writeConfig('FillMode', 2); %s";
constexpr std::string_view WriteColor = "d.writeConfig('Color', '%s');";
constexpr std::string_view PrintPicture = "if (i == 0) print(d.readConfig('Image'));";

std::string ColorText(TColor color)
{
    const auto part = [&](unsigned shift) { return std::to_string((color >> shift) & 0xFFU); };
    return FormatText(WriteColor, {part(0) + ',' + part(8) + ',' + part(16)});
}

std::optional<std::string> RunScript(std::string_view before, const std::string& action)
{
    const std::string script = FormatText(ForEachDesktop, {before, action});
    const TVariant answer =
        CallSessionBus(PlasmaShell, "evaluateScript", g_variant_new("(s)", script.c_str()), "(s)");
    if (!answer)
        return std::nullopt;
    const char* printed = nullptr;
    g_variant_get(answer.get(), "(&s)", &printed);
    return std::string(Trim(printed));
}

class TPlasmaBackground : public TBackground
{
public:
    std::optional<bool> IsStuckTo(const std::string& path) override
    {
        const auto uri = RunScript("", std::string(PrintPicture));
        return uri ? std::optional(UriFile(*uri) == path) : std::nullopt;
    }

    bool SetPicture(const std::string& path, TColor color) override
    {
        // An apostrophe is the only character of an address that could end the script's text.
        const std::string uri = ReplaceAll(FileUri(path), "'", "%27");
        return RunScript("d.wallpaperPlugin = 'org.kde.image';",
                         FormatText(WritePicture, {uri, ColorText(color)}))
            .has_value();
    }

    std::optional<TColor> Color() override { return std::nullopt; }
    void SetColor(TColor color) override { RunScript("", ColorText(color)); }
};

} // namespace

std::unique_ptr<TBackground> NewPlasmaBackground()
{
    return std::make_unique<TPlasmaBackground>();
}

} // namespace murala
