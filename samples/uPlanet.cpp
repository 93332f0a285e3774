#include "uScenes.h"
#include "uStars.h"

#include <algorithm>

namespace murala
{

namespace
{

// Lengths are in radii of the planet; the view is along -z, x to the right, y downwards.
constexpr TVector Center = {0.70, 0.53, 0};
constexpr double Radius = 0.265;
constexpr double RingInside = 1.38, RingOutside = 2.42;

const TVector ToSun = Normal({-0.78, -0.42, 0.46});
const TVector Axis = Normal({0.34, -0.86, 0.36}); // of the planet and its ring

constexpr unsigned Bands[] = {0x8C5A3C, 0xE3B989, 0xF5E3C3, 0xC98B5E, 0xEBD0A5,
                              0xA86A48, 0xF2D9B1, 0xD9A577, 0xFBEFD8, 0xB97B55};

TLight BandColor(double position)
{
    const double wrapped = position - 10 * std::floor(position / 10);
    const int first = std::min(9, static_cast<int>(wrapped));
    return Mix(Color(Bands[first]), Color(Bands[(first + 1) % 10]),
               Step(0.15, 0.85, wrapped - first));
}

// The cloud bands: latitude, bent by turbulence that is stretched along the bands.
TLight SurfaceAt(TVector at)
{
    const double latitude = Dot(at, Axis);
    const TVector flat = at + Axis * (latitude * 2.2);
    const double curl = Clouds(flat * 2.6 + TVector{0, 0, 3}, 5);
    const double bent =
        latitude + 0.11 * curl * (1 - latitude * latitude) +
        0.035 * Clouds(flat * 9 + Axis * (latitude * 14) + TVector{curl * 3, 0, 0}, 5);
    const double fine = Clouds({bent * 34, 1.5, curl * 1.3}, 4);
    return BandColor(bent * 7.5 + 0.9 * fine + 20) * (0.94 + 0.3 * fine);
}

// 0 where nothing is, 1 where no light comes through.
double RingDensity(double radius)
{
    const double inside = (radius - RingInside) / (RingOutside - RingInside);
    if (inside < 0 || inside > 1)
        return 0;
    const double grooves = 0.62 + 0.75 * Clouds({inside * 26, 0.5, 0.5}, 5);
    const double gap = Step(0.012, 0.022, std::abs(inside - 0.68)) *
                       (0.5 + 0.5 * Step(0.004, 0.01, std::abs(inside - 0.9)));
    const double thin =
        Mix(0.35, 1, Step(0.12, 0.3, inside)) * Step(1, 0.97, inside) * Step(0, 0.02, inside);
    return Clamp01(grooves * gap * thin);
}

// The share of the sun's light that the ring lets through to a point.
double RingShade(TVector at)
{
    const double along = -Dot(at, Axis) / Dot(ToSun, Axis);
    return along <= 0 ? 1 : 1 - 0.75 * RingDensity(Length(at + ToSun * along));
}

// The share that the planet lets through to a point of the ring.
double PlanetShade(TVector at)
{
    const double along = Dot(at, ToSun);
    return along >= 0 ? 1 : Step(0.97, 1.03, Length(at - ToSun * along));
}

TLight SpaceAt(double x, double y)
{
    const double bend = Clouds({x * 1.1, y * 1.1, 2}, 5);
    const double cloud = Clouds({x * 1.5 + bend * 1.4, y * 1.5 - bend, 7}, 7);
    const double glow = Step(-0.18, 0.55, cloud);
    const double dust = Step(0.02, 0.4, Clouds({x * 2.6 - bend, y * 2.6, 12}, 6));
    TLight space = Color(0x04060F) + Color(0x27386E) * (0.75 * glow) +
                   Color(0x8A3F78) * (0.5 * glow * Step(-0.1, 0.45, bend)) +
                   Color(0x1F7C86) * (0.28 * glow * Step(0.1, -0.4, bend));
    space = space * (1 - 0.65 * dust);
    return space + StarsAt(x, y);
}

// The planet's ball where it covers the point; the light of its air around it.
struct TBall {
    bool IsHit;
    double Depth; // z of the point that is seen
    TLight Light;
};

TBall BallAt(TVector at)
{
    const double distance = std::hypot(at.X, at.Y);
    if (distance >= 1)
        return {false, 0, {}};
    const TVector normal = {at.X, at.Y, std::sqrt(1 - distance * distance)};
    const double sun = Dot(normal, ToSun);
    const double day = Step(-0.14, 0.55, sun) * (0.35 + 0.65 * Clamp01(sun));
    const double rim = std::pow(1 - normal.Z, 3);
    TLight light = SurfaceAt(normal) * (1.25 * day * RingShade(normal));
    light = light * (1 - 0.45 * rim) + Color(0x8FC3FF) * (0.75 * rim * Step(-0.25, 0.5, sun));
    return {true, normal.Z, light + Color(0x0A1024) * 0.35};
}

TLight AirAt(TVector at)
{
    const double distance = std::hypot(at.X, at.Y);
    const double sun = Dot({at.X / distance, at.Y / distance, 0}, ToSun);
    return Color(0x7DB4FF) * (0.55 * std::exp(-(distance - 1) * 22) * Step(-0.35, 0.8, sun));
}

TLight MoonAt(TVector at, TLight behind)
{
    constexpr TVector center = {-2.02, -1.18, 0};
    constexpr double radius = 0.115;
    const TVector in = (at - center) * (1 / radius);
    const double distance = std::hypot(in.X, in.Y);
    if (distance >= 1)
        return behind;
    const TVector normal = {in.X, in.Y, std::sqrt(1 - distance * distance)};
    const double craters = Clouds(normal * 3.1, 6);
    return Color(0xB9B4AE) * ((0.8 + 0.9 * craters) * Step(-0.05, 0.9, Dot(normal, ToSun))) +
           Color(0x05070C) * 0.5;
}

class TPlanet : public TScene
{
public:
    TLight At(double x, double y) const override
    {
        const TVector at = (TVector{x, y, 0} - Center) * (1 / Radius);
        TLight light = MoonAt(at, SpaceAt(x, y));
        const TBall ball = BallAt(at);
        const TVector ring = {at.X, at.Y, -(Axis.X * at.X + Axis.Y * at.Y) / Axis.Z};
        const double density = RingDensity(Length(ring));
        const bool isRingBehind = ball.IsHit && ring.Z < ball.Depth;
        light = ball.IsHit ? ball.Light : light + AirAt(at);
        return isRingBehind ? light : Mix(light, RingLight(ring), 0.93 * density);
    }

private:
    static TLight RingLight(TVector at)
    {
        const double tone = Clouds({Length(at) * 9, 3.5, 0.5}, 3);
        return Mix(Color(0xD9BE97), Color(0xA88B78), 0.5 + tone) * (0.95 * PlanetShade(at) + 0.02);
    }
};

} // namespace

std::unique_ptr<TScene> MakePlanet()
{
    return std::make_unique<TPlanet>();
}

} // namespace murala
