#include "uScenes.h"

namespace murala
{

namespace
{

constexpr double WaterLine = 0.70;
constexpr TVector Sun = {1.06, 0.40, 0};

// A mountain range; the first one is the farthest.
struct TRange {
    double Height;    // of its foot, from the top of the picture
    double Rise;      // of its peaks above the foot
    double Frequency; // peaks in a picture's height
    unsigned Rock, Mist;
};
constexpr TRange Ranges[] = {
    {0.545, 0.190, 2.2, 0xB48FA0, 0xF3C9A4}, {0.590, 0.200, 2.7, 0x8A7795, 0xE9B79C},
    {0.630, 0.150, 3.1, 0x5E6285, 0xCFA096}, {0.665, 0.115, 3.9, 0x3C4A6B, 0xA98790},
    {0.695, 0.060, 5.3, 0x22334C, 0x7A6F80},
};

// Sharp peaks: noise folded at zero, finer noise only near the crests.
double Crest(double x, double seed, int octaves)
{
    double sum = 0, strength = 0.55, weight = 1;
    for (int i = 0; i < octaves; ++i, x = x * 2.07 + 11.3, strength *= 0.47) {
        const double fold = 1 - std::abs(Noise({x, seed, 0.37 * i})) * 1.7;
        sum += strength * weight * fold;
        weight = Clamp01(fold);
    }
    return sum;
}

TLight SkyAt(double x, double y)
{
    constexpr struct {
        double Height;
        unsigned Color;
    } stops[] = {
        {0, 0x27456F}, {0.18, 0x5379A0}, {0.33, 0xB9AEB4}, {0.45, 0xF4C79A}, {0.6, 0xFFDDA8}};
    TLight sky = Color(stops[0].Color);
    for (int i = 1; i < 5; ++i)
        sky = Mix(sky, Color(stops[i].Color), Step(stops[i - 1].Height, stops[i].Height, y));

    const double veil = Clouds({x * 1.6 + 0.25 * Noise({x * 2, y * 5, 4}), y * 7.5, 9}, 6);
    const double cover = Step(0.02, 0.42, veil + 0.12) * Step(0.52, 0.2, y) * Step(-0.1, 0.15, y);
    sky = Mix(sky, Mix(Color(0xFFE3C4), Color(0xE08E7A), Step(0.1, 0.4, y)), 0.62 * cover);

    const double distance = std::hypot(x - Sun.X, y - Sun.Y);
    const TLight warm = Color(0xFFC477);
    return sky + warm * (0.55 * std::exp(-distance * 6.5)) +
           warm * (0.9 * std::exp(-distance * 26)) +
           Color(0xFFEBC4) * (1.5 * Step(0.0345, 0.0315, distance));
}

TLight RockAt(const TRange& range, int number, double x, double y, double depth)
{
    // Gullies run down from the crest; the sides towards the sun are brighter.
    const double slant = 0.6 * Noise({x * range.Frequency * 2, y * 6, 40.0 + number});
    const auto rockHeight = [&](double px, double py) {
        return Clouds(
            {(px + slant * (py - y)) * range.Frequency * 6, py * range.Frequency * 4, 3.0 + number},
            6);
    };
    const double side = Sun.X > x ? -1 : 1;
    const double relief = rockHeight(x, y) - rockHeight(x + 0.006 * side, y - 0.004);
    const TLight rock = Color(range.Rock) * (1 - 1.9 * relief * Step(0, 0.015, depth));
    // Mist fills the valleys up to a height that is the same along the range.
    const double drift = 0.035 * Clouds({x * 2.6, y * 9, 2.0 * number}, 4);
    const double mist =
        Step(range.Height - range.Rise * 0.85, range.Height + range.Rise * 0.12, y + drift);
    const double sunny = std::exp(-3.2 * std::abs(x - Sun.X));
    const TLight haze = Color(range.Mist) + Color(0xFFB060) * (0.22 * sunny);
    return Mix(rock, haze, 0.12 + 0.8 * mist);
}

TLight ViewAt(double x, double y)
{
    for (int number = 4; number >= 0; --number) {
        const TRange& range = Ranges[number];
        const double crest = Crest(x * range.Frequency + 3.7 * number, 5.1 + number, 8);
        const double top = range.Height - range.Rise * (1.75 * crest - 0.82);
        if (y > top)
            return RockAt(range, number, x, y, y - top);
    }
    return SkyAt(x, y);
}

TLight WaterAt(double x, double y)
{
    const double depth = y - WaterLine;
    const double scale = 1 / (0.02 + depth);
    const double swell =
        Clouds({x * 9, scale * 3.2, 21}, 3) + 0.5 * Clouds({x * 38, scale * 9, 5}, 2);
    const double mirrored = WaterLine - depth * 1.02 - swell * (0.008 + depth * 0.16);
    const TLight mirror = ViewAt(x + swell * depth * 0.05, mirrored < 0 ? 0 : mirrored);
    const TLight deep = Color(0x14283F);
    TLight water = Mix(mirror, deep, 0.16 + 0.42 * Step(0, 0.3, depth));
    const double path = std::exp(-std::pow((x - Sun.X) / (0.03 + depth * 0.22), 2));
    water = water + Color(0xFFD9A0) * (0.9 * path * Step(0.12, 0.42, swell + 0.12));
    // Mist lies on the far shore.
    return Mix(water, Color(0xE6C2A6), 0.55 * std::exp(-depth * 42));
}

// How far a fir reaches to the side, `down` of the way from its top.
double FirWidth(double down)
{
    const double branch = down * 7.5 - std::floor(down * 7.5);
    return down < 0 || down > 1 ? 0 : 0.02 + 0.2 * down * (0.5 + 0.6 * branch);
}

// The shore in front: slopes at both sides of the picture, grown over with firs.
double ShoreAt(double x)
{
    const double left = 0.30 * Step(0.62, -0.1, x), right = 0.2 * Step(1.18, 1.75, x);
    return 1.035 - left - right + 0.012 * Clouds({x * 14, 2, 2}, 4);
}

bool IsFir(double x, double y, double spacing, int row)
{
    constexpr double tallest = 0.16;
    const int cell = static_cast<int>(std::floor(x / spacing));
    for (int i = cell - 2; i <= cell + 2; ++i) {
        const double center = (i + 0.15 + 0.7 * Chance(i, row, 1)) * spacing;
        const double foot = ShoreAt(center) + 0.012;
        if (y < foot - tallest || y > foot)
            continue;
        const double height = (0.03 + 0.115 * Chance(i, row, 2) * Step(1.042, 0.912, foot)) *
                              Step(1.052, 0.992, foot);
        const double down = (y - foot + height) / (height + 0.02);
        const double ragged = 1 + 0.5 * Noise({x * 900, y * 500, double(i)});
        if (std::abs(x - center) < height * FirWidth(down) * ragged)
            return true;
    }
    return false;
}

class TLandscape : public TScene
{
public:
    TLight At(double x, double y) const override
    {
        constexpr double aboveShore = 0.5; // nothing of the shore reaches higher
        if (y < aboveShore)
            return ViewAt(x, y);
        if (y > ShoreAt(x) || IsFir(x, y, 0.021, 1))
            return Color(0x0B1622) * (0.8 + 0.5 * Clouds({x * 40, y * 40, 8}, 3));
        if (IsFir(x, y + 0.022, 0.017, 2))
            return Mix(Color(0x1B2C3C), Color(0x55586A), 0.35);
        return y > WaterLine ? WaterAt(x, y) : ViewAt(x, y);
    }
};

} // namespace

std::unique_ptr<TScene> MakeLandscape()
{
    return std::make_unique<TLandscape>();
}

} // namespace murala
