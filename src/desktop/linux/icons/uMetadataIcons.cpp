// Caja and Nemo store the place of every icon: that of a file in the file's metadata, those of
// other icons in a settings file.
#include "uIconFiles.h"

#include "uFolders.h"
#include "uGLib.h"
#include "uIniFile.h"
#include "uPath.h"

#include <cstdio>
#include <optional>

namespace murala
{

namespace
{

std::optional<TPlacedIcon> ParsePlace(const std::string& name, const char* text)
{
    TPlacedIcon icon{name, 0, 0};
    const bool known = text != nullptr && std::sscanf(text, "%d,%d", &icon.X, &icon.Y) == 2;
    return known ? std::optional(icon) : std::nullopt;
}

TGText MetadataOf(const std::string& path, const std::string& attribute)
{
    const TGObject<GFile> file(g_file_new_for_path(path.c_str()));
    const TGObject<GFileInfo> info(g_file_query_info(
        file.get(), attribute.c_str(), G_FILE_QUERY_INFO_NOFOLLOW_SYMLINKS, nullptr, nullptr));
    return TGText(info ? g_file_info_get_attribute_as_string(info.get(), attribute.c_str())
                       : nullptr);
}

TRects MetadataIcons(const char* manager, const TIconLook& look)
{
    const std::string key = std::string(manager) + "-icon-position";
    const std::string folder = DesktopFolder();
    TPlacedIcons placed;
    const auto add = [&](const std::string& name, const char* place) {
        if (const auto icon = ParsePlace(name, place))
            placed.push_back(*icon);
    };
    const std::vector<std::string> names = NamesOnDesktop();
    for (const std::string& name : names)
        add(name, MetadataOf(JoinPath(folder, name), "metadata::" + key).get());
    const TIniFile others =
        TIniFile::Load(PathText(UserConfigFolder() / manager / "desktop-metadata"));
    for (const std::string& section : others.Sections())
        add(section, others.ReadText(section, key, "").c_str());
    if (placed.empty() && !names.empty())
        ThrowNothingStored(manager);
    TRects icons;
    for (const TPlacedIcon& icon : placed)
        AddIcon(icons, look, icon.X + look.IconSize / 2, icon.Y, icon.Name);
    return icons;
}

} // namespace

TRects CajaIcons()
{
    return MetadataIcons("caja", {UsualIconSize, 130, 3});
}

TRects NemoIcons()
{
    return MetadataIcons("nemo", {UsualIconSize, 110, 2});
}

} // namespace murala
