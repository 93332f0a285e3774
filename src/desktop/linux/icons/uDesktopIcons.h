// Where the icons on the desktop are. No Linux desktop can be asked; some leave it in files.
#pragma once

#include "uIconLayout.h"

#include <stdexcept>

namespace murala
{

// What the user is told: why the places are not known.
class EIconsUnknown : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// The area of the icons and their labels, seen from the first monitor's corner. Throws
// EIconsUnknown, and EFileError where a file is there and cannot be read.
TRects ReadDesktopIcons();

} // namespace murala
