#include "uScene.h"

#include <algorithm>

namespace murala
{

namespace
{

constexpr int RaysPerSide = 2;

std::uint32_t Scramble(std::uint32_t v)
{
    v = (v ^ (v >> 16U)) * 0x7FEB352DU;
    v = (v ^ (v >> 15U)) * 0x846CA68BU;
    return v ^ (v >> 16U);
}

std::uint32_t CellNumber(int x, int y, int z)
{
    const auto number = [](int v) { return static_cast<std::uint32_t>(v); };
    return Scramble(number(x) + Scramble(number(y) + Scramble(number(z) + 0x9E3779B9U)));
}

// The slope that a corner of the noise's lattice lays through the point at this distance.
double Slope(int x, int y, int z, TVector distance)
{
    const std::uint32_t number = CellNumber(x, y, z);
    const auto part = [=](unsigned shift) { return (number >> shift & 1023U) / 511.5 - 1; };
    return Dot({part(0), part(10), part(20)}, distance);
}

double Fade(double t)
{
    return t * t * t * (t * (t * 6 - 15) + 10);
}

// sRGB's transfer curve.
double ToScreen(double light)
{
    return light <= 0.0031308 ? 12.92 * light : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
}

// Bright light bends towards white instead of being cut off.
double Expose(double light)
{
    return light < 0.7 ? light : 1 - 0.3 * std::exp((0.7 - light) / 0.3);
}

} // namespace

double Step(double from, double to, double v)
{
    const double t = Clamp01((v - from) / (to - from));
    return t * t * (3 - 2 * t);
}

double Chance(int x, int y, int z)
{
    return CellNumber(x, y, z) / 4294967296.0;
}

double Noise(TVector at)
{
    const int x = static_cast<int>(std::floor(at.X)), y = static_cast<int>(std::floor(at.Y)),
              z = static_cast<int>(std::floor(at.Z));
    const TVector in = {at.X - x, at.Y - y, at.Z - z};
    const TVector t = {Fade(in.X), Fade(in.Y), Fade(in.Z)};
    const auto corner = [&](int i, int j, int k) {
        return Slope(x + i, y + j, z + k, in - TVector{double(i), double(j), double(k)});
    };
    const auto edge = [&](int j, int k) { return Mix(corner(0, j, k), corner(1, j, k), t.X); };
    const auto side = [&](int k) { return Mix(edge(0, k), edge(1, k), t.Y); };
    return Mix(side(0), side(1), t.Z);
}

double Clouds(TVector at, int octaves)
{
    double sum = 0, strength = 0.5;
    for (int i = 0; i < octaves; ++i, strength /= 2) {
        sum += strength * Noise(at);
        at = at * 2.03 + TVector{17.1, 31.7, 5.3};
    }
    return sum;
}

TLight Color(unsigned rgb)
{
    const auto channel = [=](unsigned shift) {
        const double v = (rgb >> shift & 255U) / 255.0;
        return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return {channel(16), channel(8), channel(0)};
}

TBitmap Paint(const TScene& scene, TSize size)
{
    TBitmap bitmap(size.Width, size.Height);
    for (int y = 0; y < size.Height; ++y)
        for (int x = 0; x < size.Width; ++x) {
            TLight light;
            for (int ray = 0; ray < RaysPerSide * RaysPerSide; ++ray) {
                const double column = x + (ray % RaysPerSide + 0.5) / RaysPerSide;
                const int above = ray / RaysPerSide;
                const double line = y + (above + 0.5) / RaysPerSide;
                light = light + scene.At(column / size.Height, line / size.Height);
            }
            light = light * (1.0 / (RaysPerSide * RaysPerSide));
            const double dither = Chance(x, y, 7) - 0.5;
            const auto channel = [=](double v) {
                const double level = ToScreen(Expose(std::max(v, 0.0))) * 255 + 0.5 + dither;
                return static_cast<TPixel>(std::clamp(level, 0.0, 255.0));
            };
            bitmap.Row(y)[x] = channel(light.X) << 16U | channel(light.Y) << 8U | channel(light.Z);
        }
    return bitmap;
}

} // namespace murala
