#include "uStars.h"

namespace murala
{

TLight StarsAt(double x, double y)
{
    TLight sum;
    for (const double cells : {22.0, 55.0, 120.0}) {
        const int column = static_cast<int>(x * cells), row = static_cast<int>(y * cells);
        const int kind = static_cast<int>(cells);
        const double crowd = 0.55 * Clouds({x * 1.8, y * 1.8, 4}, 3) + 0.26;
        if (Chance(column, row, kind) > crowd)
            continue;
        const double px = (column + 0.06 + 0.88 * Chance(column, row, kind + 1)) / cells;
        const double py = (row + 0.06 + 0.88 * Chance(column, row, kind + 2)) / cells;
        const double bright = std::pow(Chance(column, row, kind + 3), 6) * 90 / cells;
        const double distance = std::hypot(x - px, y - py) * 1200;
        const TLight tone = Mix(Color(0xFFD2A8), Color(0xB8D0FF), Chance(column, row, kind + 4));
        sum = sum + tone * ((0.1 + bright) * std::exp(-distance * distance / 1.1) +
                            0.05 * bright * std::exp(-distance / 3));
    }
    return sum;
}

} // namespace murala
