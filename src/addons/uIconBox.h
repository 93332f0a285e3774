// The shade behind the desktop's icons.
#pragma once

#include "uBitmap.h"
#include "uSettings.h"

#include <vector>

namespace murala
{

// Tints the rectangle around all icons, five pixels wider than the region on every side, or only
// the region itself, and draws the frame of the rectangle, as the settings say. The region is that
// of the icons and their labels on the desktop, whose rectangles may overlap. An empty region is a
// point in the top-left corner.
void DrawIconBox(TBitmap& picture, const TIconBoxSettings& settings,
                 const std::vector<TRect>& region);

} // namespace murala
