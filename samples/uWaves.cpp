#include "uScenes.h"

namespace murala
{

namespace
{

// Rows of fans, every row in front of the one above and half a fan beside it. Two fans are as wide,
// and eight rows as high, as the picture, so that it can be tiled.
class TWaves : public TScene
{
public:
    TLight At(double x, double y) const override
    {
        constexpr double radius = 0.25, rowHeight = 0.125;
        for (int row = static_cast<int>(std::floor((y + radius) / rowHeight));; --row) {
            const double shifted = x / (2 * radius) + (row % 2 == 0 ? 0.5 : 0);
            const double side = (shifted - std::floor(shifted) - 0.5) * 2 * radius;
            const double distance = std::hypot(side, row * rowHeight - y) / radius;
            if (distance < 1)
                return FanAt(distance);
        }
    }

private:
    static TLight FanAt(double distance)
    {
        constexpr double edge = 0.02;
        const double ring = distance * 4 - std::floor(distance * 4);
        const double line = Step(0.72 - edge, 0.72 + edge, ring) * Step(1, 1 - edge, ring);
        const TLight ground = Mix(Color(0x0E3B4E), Color(0x1E6F80), distance);
        return Mix(ground, Color(0xF0E2C0), 0.9 * line);
    }
};

} // namespace

std::unique_ptr<TScene> MakeWaves()
{
    return std::make_unique<TWaves>();
}

} // namespace murala
