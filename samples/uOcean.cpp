#include "uScenes.h"
#include "uStars.h"

#include <algorithm>

namespace murala
{

namespace
{

// Lengths are in radii of the planet; the view is along -z, x to the right, y downwards.
constexpr TVector Center = {0.50, 1.36, 0};
constexpr double Radius = 1.02;
constexpr double AirHeight = 0.012;

const TVector ToSun = Normal({0.62, -0.66, 0.42});

// Above the water's level where it is positive.
double HeightAt(TVector normal)
{
    return Clouds(normal * 2.6 + TVector{3.1, 0.4, 1.7}, 9);
}

double IsLand(double height)
{
    return Step(0.03, 0.06, height);
}

// Water and land at a point of the ball.
TLight GroundAt(TVector normal, double height)
{
    const double dry = Step(-0.25, 0.3, Clouds(normal * 4 + TVector{9, 2, 5}, 5));
    const TLight water = Mix(Color(0x06244F), Color(0x1A6E8E), Step(-0.16, 0.04, height));
    const TLight meadow = Mix(Color(0x2C5A2E), Color(0xA98A55), dry);
    const TLight rock = Mix(meadow, Color(0xE9E4DC), Step(0.28, 0.42, height));
    return Mix(water, rock, IsLand(height));
}

// Bands of weather that turn around each other.
double CloudsAt(TVector normal)
{
    const TVector wide = normal * 2.1 + TVector{0, 7, 0};
    const double turn = Clouds(wide, 4);
    const TVector bent = normal * 4.2 + TVector{turn * 2.2, normal.Y * 3, -turn * 1.6};
    return Step(0.02, 0.5, Clouds(bent, 8) + 0.35 * turn);
}

TLight BallAt(TVector normal)
{
    const double sun = Dot(normal, ToSun);
    const double day = Step(-0.12, 0.5, sun) * (0.3 + 0.7 * Clamp01(sun));
    const double height = HeightAt(normal);
    const TVector half = Normal(ToSun + TVector{0, 0, 1});
    const double glint = std::pow(Clamp01(Dot(normal, half)), 60) * (1 - IsLand(height));
    const double clouds = CloudsAt(normal);
    const double shade = CloudsAt(Normal(normal + ToSun * 0.012));
    TLight light =
        GroundAt(normal, height) * (1.15 * (1 - 0.45 * shade)) + Color(0xFFE9C0) * (0.55 * glint);
    light = Mix(light, Color(0xF4F7FB), 0.92 * clouds) * (1.25 * day);
    const double rim = std::pow(1 - normal.Z, 2.2);
    return Mix(light, Color(0x6FB4FF) * (1.1 * Step(-0.2, 0.5, sun)), 0.75 * rim) + Color(0x03060F);
}

TLight AirAt(double distance, TVector at)
{
    const double sun = Dot({at.X / distance, at.Y / distance, 0}, ToSun);
    const double height = (distance - 1) / AirHeight;
    const double day = Step(-0.25, 0.75, sun);
    return Color(0x8CC8FF) * (1.0 * std::exp(-height * 1.1) * day) +
           Color(0x2E6BD6) * (0.5 * std::exp(-height * 0.28) * day);
}

TLight SkyAt(double x, double y)
{
    const double bend = Clouds({x * 0.9 + 5, y * 0.9, 3}, 5);
    const double veil = Step(-0.1, 0.6, Clouds({x * 1.2 + bend, y * 1.6 - bend, 9}, 6));
    return Color(0x03050D) + Color(0x16305E) * (0.7 * veil) +
           Color(0x3B2A6B) * (0.45 * veil * Step(0, 0.5, bend)) + StarsAt(x + 3, y + 2) * 0.8;
}

class TOcean : public TScene
{
public:
    TLight At(double x, double y) const override
    {
        const TVector at = (TVector{x, y, 0} - Center) * (1 / Radius);
        const double distance = std::hypot(at.X, at.Y);
        if (distance >= 1)
            return SkyAt(x, y) + AirAt(distance, at);
        return BallAt({at.X, at.Y, std::sqrt(1 - distance * distance)});
    }
};

} // namespace

std::unique_ptr<TScene> MakeOcean()
{
    return std::make_unique<TOcean>();
}

} // namespace murala
