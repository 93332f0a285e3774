// KDE Plasma, by a script that its shell runs.
#include "uBackground.h"
#include "uFileUri.h"
#include "uSessionBus.h"
#include "uText.h"

namespace murala
{

namespace
{

constexpr TBusObject PlasmaShell{"org.kde.plasmashell", "/PlasmaShell", "org.kde.PlasmaShell"};

// Every script does something on the desktop of each screen, and prints how many there are: none
// while the shell is still starting. In old JavaScript, for older shells.
constexpr std::string_view ForEachDesktop = "var all = desktops();"
                                            "for (var i = 0; i < all.length; i++) {"
                                            " var d = all[i];"
                                            " %s"
                                            " d.currentConfigGroup ="
                                            " ['Wallpaper', 'org.kde.image', 'General'];"
                                            " %s"
                                            "}"
                                            " print(all.length);";
// FillMode 2 fills the screen and keeps the proportions.
constexpr std::string_view WritePicture = "d.writeConfig('Image', '%s');"
                                          " d.writeConfig('FillMode', 2); %s";
constexpr std::string_view WriteColor = "d.writeConfig('Color', '%s');";

std::string ColorText(TColor color)
{
    const auto part = [&](unsigned shift) { return std::to_string((color >> shift) & 0xFFU); };
    return FormatText(WriteColor, {part(0) + ',' + part(8) + ',' + part(16)});
}

// `onDone` is told on how many desktops it ran.
void RunScript(std::string_view before, const std::string& action, std::function<void(int)> onDone)
{
    const std::string script = FormatText(ForEachDesktop, {before, action});
    CallSessionBusLater(PlasmaShell, "evaluateScript", g_variant_new("(s)", script.c_str()), "(s)",
                        [onDone = std::move(onDone)](GVariant* answer) {
                            const char* printed = "";
                            if (answer != nullptr)
                                g_variant_get(answer, "(&s)", &printed);
                            onDone(ParseInteger(Trim(printed)).value_or(0));
                        });
}

class TPlasmaBackground : public TBackground
{
public:
    void SetPicture(const std::string& path, TColor color, TOnTook onTook) override
    {
        // An apostrophe is the only character of an address that could end the script's text.
        const std::string uri = ReplaceAll(FileUri(path), "'", "%27");
        RunScript("d.wallpaperPlugin = 'org.kde.image';",
                  FormatText(WritePicture, {uri, ColorText(color)}),
                  [onTook = std::move(onTook)](int desktops) {
                      onTook(desktops > 0 ? TTook::Yes : TTook::NotYet, "");
                  });
    }

    void SetColor(TColor color) override
    {
        RunScript("", ColorText(color), [](int) {});
    }
};

} // namespace

std::unique_ptr<TBackground> NewPlasmaBackground()
{
    return std::make_unique<TPlasmaBackground>();
}

} // namespace murala
