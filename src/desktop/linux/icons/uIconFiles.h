// What the readers of the desktops' icon files share, and the readers. All throw EIconsUnknown
// where nothing is stored and EFileError where a file is there and cannot be read.
#pragma once

#include "uDesktopIcons.h"

#include <filesystem>
#include <string>

namespace murala
{

inline constexpr int UsualIconSize = 48;

[[noreturn]] void ThrowNothingStored(const char* program);

std::string DesktopFolder();
// The names of its files and folders, hidden ones left out.
std::vector<std::string> NamesOnDesktop();
// The screen without its panels.
TRect WorkArea();

// An icon's place in the corner that its file manager goes by.
struct TPlacedIcon {
    std::string Name;
    int X = 0, Y = 0;
};
using TPlacedIcons = std::vector<TPlacedIcon>;

TRects XfceIcons();
TRects PcmanfmIcons();
TRects PcmanfmQtIcons();
TRects CajaIcons();
TRects NemoIcons();

} // namespace murala
