// PCManFM and PCManFM-Qt store the places of icons that the user has moved, and lay the others out
// in columns.
#include "uIconFiles.h"

#include "uFolders.h"
#include "uGLib.h"
#include "uIniFile.h"
#include "uPath.h"
#include "uText.h"

#include <algorithm>
#include <cstdio>

namespace murala
{

namespace
{

namespace fs = std::filesystem;

// Which icon lies in a column is not known: each gets a label of ordinary length.
constexpr std::string_view SomeLabel = "An icon's name";

fs::path NewestOf(const std::vector<fs::path>& files)
{
    const auto age = [](const fs::path& file) {
        std::error_code error;
        return fs::last_write_time(file, error);
    };
    return files.empty() ? fs::path() : *std::ranges::max_element(files, {}, age);
}

struct TColumnsOfIcons {
    TRect Area;
    TSize Cell;
    TIconLook Look;
    int IconTop; // in its cell
};

TRects AllIcons(const TColumnsOfIcons& columns, const TPlacedIcons& placed, std::size_t others)
{
    TRects cells, icons;
    const auto add = [&](int x, int y, std::string_view label) {
        AddIcon(icons, columns.Look, x + columns.Cell.Width / 2, y + columns.IconTop, label);
    };
    for (const TPlacedIcon& icon : placed) {
        cells.push_back(
            {icon.X, icon.Y, icon.X + columns.Cell.Width, icon.Y + columns.Cell.Height});
        add(icon.X, icon.Y, icon.Name);
    }
    for (const TRect& cell : FreeCells(columns.Area, columns.Cell, cells, others))
        add(cell.Left, cell.Top, SomeLabel);
    return icons;
}

// The file of the profile that was written last; empty when there is none.
fs::path ItemsFile(const char* manager)
{
    std::vector<fs::path> files;
    for (const fs::path& profile : EntriesOf(UserConfigFolder() / manager))
        if (const fs::path file = profile / "desktop-items-0.conf"; FileExists(PathText(file)))
            files.push_back(file);
    return NewestOf(files);
}

TIniFile LoadItems(const fs::path& file)
{
    return file.empty() ? TIniFile() : TIniFile::Load(PathText(file));
}

bool Holds(const TPlacedIcons& icons, std::string_view name)
{
    return std::ranges::find(icons, name, &TPlacedIcon::Name) != icons.end();
}

// GLib's key files may have no brackets in the names of groups.
std::string WithoutBackslashes(std::string_view name)
{
    std::string text;
    for (std::size_t at = 0; at < name.size(); at++) {
        at += name[at] == '\\' && at + 1 < name.size() ? 1 : 0;
        text += name[at];
    }
    return text;
}

// Qt writes a "%" with two hexadecimal digits, or with "U" and the four of a UTF-16 unit.
std::string WithoutPercents(std::string_view name)
{
    std::u16string units;
    for (std::size_t at = 0; at < name.size(); at++) {
        const std::string rest(name.substr(at, 6));
        unsigned code = static_cast<unsigned char>(name[at]);
        if (std::sscanf(rest.c_str(), "%%U%4x", &code) == 1)
            at += 5;
        else if (std::sscanf(rest.c_str(), "%%%2x", &code) == 1)
            at += 2;
        units += static_cast<char16_t>(code);
    }
    const TGText text(g_utf16_to_utf8(reinterpret_cast<const gunichar2*>(units.data()),
                                      static_cast<glong>(units.size()), nullptr, nullptr, nullptr));
    return text ? text.get() : "";
}

} // namespace

// Files that are gone may still stand in it.
TRects PcmanfmIcons()
{
    struct TSpecial {
        const char* Key;
        const char* Name;
    };
    constexpr TSpecial Specials[] = {{"show_trash", "trash:///"}, {"show_documents", "documents"}};
    const TIniFile file = LoadItems(ItemsFile("pcmanfm"));
    std::vector<std::string> names = NamesOnDesktop();
    for (const TSpecial& special : Specials)
        if (file.ReadInteger("*", special.Key, 0) != 0)
            names.emplace_back(special.Name);
    TPlacedIcons placed;
    for (const std::string& section : file.Sections()) {
        const std::string name = WithoutBackslashes(section);
        const auto x = file.Read(section, "x"), y = file.Read(section, "y");
        if (x && y && std::ranges::find(names, name) != names.end())
            placed.push_back({name, ParseInteger(*x).value_or(0), ParseInteger(*y).value_or(0)});
    }
    const TIniFile look = TIniFile::Load(PathText(UserConfigFolder() / "libfm" / "libfm.conf"));
    const int size = std::clamp(look.ReadInteger("ui", "big_icon_size", UsualIconSize), 8, 512);
    TRect area = WorkArea();
    area.Left += 2;
    area.Top += 1;
    return AllIcons({area, {size + 68, size + 58}, {size, 100, 2}, 4}, placed,
                    names.size() - placed.size());
}

TRects PcmanfmQtIcons()
{
    const fs::path items = ItemsFile("pcmanfm-qt");
    const TIniFile file = LoadItems(items);
    const std::vector<std::string> names = NamesOnDesktop();
    TPlacedIcons placed;
    for (const std::string& section : file.Sections()) {
        TPlacedIcon icon{WithoutPercents(section), 0, 0};
        const std::string position = file.ReadText(section, "pos", "");
        if (std::sscanf(position.c_str(), "@Point(%d %d)", &icon.X, &icon.Y) == 2 &&
            std::ranges::find(names, icon.Name) != names.end() && !Holds(placed, icon.Name))
            placed.push_back(icon);
    }
    constexpr int Margin = 12;
    TRect area = WorkArea();
    area = {area.Left + Margin, area.Top + Margin, area.Right - Margin, area.Bottom - Margin};
    return AllIcons({area, {127, 116}, {UsualIconSize, 120, 3}, 4}, placed,
                    names.size() - placed.size());
}

} // namespace murala
