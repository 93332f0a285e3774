// XFCE keeps the cells of all icons, in a file for each size of the area between the panels.
#include "uIconFiles.h"

#include "uFolders.h"
#include "uIniFile.h"
#include "uPath.h"
#include "uSessionBus.h"
#include "uText.h"

#include <algorithm>

namespace murala
{

namespace
{

namespace fs = std::filesystem;

std::uint32_t XfceValue(const char* property, std::uint32_t otherwise)
{
    constexpr int LimitMs = 250; // a picture is being composed
    constexpr TBusObject Xfconf{"org.xfce.Xfconf", "/org/xfce/Xfconf", "org.xfce.Xfconf"};
    const TVariant answer = CallSessionBus(
        Xfconf, "GetProperty", g_variant_new("(ss)", "xfce4-desktop", property), "(v)", LimitMs);
    if (!answer)
        return otherwise;
    const TVariant boxed(g_variant_get_child_value(answer.get(), 0));
    const TVariant value(g_variant_get_variant(boxed.get()));
    if (g_variant_is_of_type(value.get(), G_VARIANT_TYPE_INT32) != FALSE)
        return static_cast<std::uint32_t>(g_variant_get_int32(value.get()));
    const bool known = g_variant_is_of_type(value.get(), G_VARIANT_TYPE_UINT32) != FALSE;
    return known ? g_variant_get_uint32(value.get()) : otherwise;
}

// Its names hold the size of the area, less a margin. The link says which was written last.
fs::path XfceFile(const TRect& area)
{
    constexpr int Margin = 8;
    const fs::path folder = UserConfigFolder() / "xfce4" / "desktop";
    const fs::path ofThisArea =
        folder / FormatText("icons.screen0-%dx%d.rc", {std::to_string(area.Width() - 2 * Margin),
                                                       std::to_string(area.Height() - 2 * Margin)});
    for (const fs::path& file : {ofThisArea, folder / "icons.screen.latest.rc"})
        if (FileExists(PathText(file)))
            return file;
    ThrowNothingStored("xfdesktop");
}

} // namespace

TRects XfceIcons()
{
    constexpr double TextOfIcon = 1.9; // a cell's width for text, in icons
    constexpr double Padding = 6;
    constexpr std::uint32_t NoIcons = 0, LargestIcon = 512;
    if (XfceValue("/desktop-icons/style", 2) == NoIcons)
        throw EIconsUnknown("xfdesktop shows no icons.");
    const auto size = static_cast<int>(
        std::clamp(XfceValue("/desktop-icons/icon-size", UsualIconSize), 8U, LargestIcon));
    const double cell = TextOfIcon * size + 2 * Padding;
    const TRect area = WorkArea();
    const TCells columns = XfceCells(area.Left, area.Width(), cell);
    const TCells rows = XfceCells(area.Top, area.Height(), cell);
    const TIniFile file = TIniFile::Load(PathText(XfceFile(area)));
    TRects icons;
    for (const std::string& name : file.Sections()) {
        const int column = file.ReadInteger(name, "col", -1),
                  row = file.ReadInteger(name, "row", -1);
        if (column < 0 || row < 0 || column > area.Width() || row > area.Height())
            continue;
        const double left = columns.First + column * columns.Step;
        AddIcon(icons, {size, static_cast<int>(TextOfIcon * size), 2},
                static_cast<int>(left + cell / 2), static_cast<int>(rows.First + row * rows.Step),
                FileNamePart(name));
    }
    return icons;
}

} // namespace murala
