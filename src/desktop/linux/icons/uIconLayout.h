// How file managers lay icons out on the desktop, as far as the box behind them needs it. Lengths
// are pixels; they hold for the managers' usual fonts.
#pragma once

#include "uGeometry.h"

#include <string_view>
#include <vector>

namespace murala
{

using TRects = std::vector<TRect>;

struct TIconLook {
    int IconSize;
    int LabelWidth; // where a label is broken into lines
    int MostLines;
};

// The icon's top edge has its middle at (middle, top); the label stands below it.
void AddIcon(TRects& area, const TIconLook& look, int middle, int top, std::string_view label);

// Cells in one direction.
struct TCells {
    double First; // where the first one begins
    double Step;
};
// XFCE's: as many cells as fit between the margins. The space that is left is divided between them
// in whole pixels; the rest goes to both ends.
TCells XfceCells(int begin, int length, double cell);

// Where a manager that fills columns from the left puts `count` icons: in the first cells of the
// area that touch none of the taken ones.
std::vector<TRect> FreeCells(const TRect& area, TSize cell, const TRects& taken, std::size_t count);

} // namespace murala
