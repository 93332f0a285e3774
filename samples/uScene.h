// What the sample pictures are painted with: colours, noise, and the frame that turns a scene into
// a bitmap.
#pragma once

#include "uBitmap.h"

#include <cmath>

namespace murala
{

struct TVector {
    double X = 0, Y = 0, Z = 0;
};
inline TVector operator+(TVector a, TVector b)
{
    return {a.X + b.X, a.Y + b.Y, a.Z + b.Z};
}
inline TVector operator-(TVector a, TVector b)
{
    return {a.X - b.X, a.Y - b.Y, a.Z - b.Z};
}
inline TVector operator*(TVector a, double s)
{
    return {a.X * s, a.Y * s, a.Z * s};
}
// Component by component.
inline TVector operator*(TVector a, TVector b)
{
    return {a.X * b.X, a.Y * b.Y, a.Z * b.Z};
}
inline double Dot(TVector a, TVector b)
{
    return a.X * b.X + a.Y * b.Y + a.Z * b.Z;
}
inline double Length(TVector a)
{
    return std::sqrt(Dot(a, a));
}
inline TVector Normal(TVector a)
{
    return a * (1 / Length(a));
}

// Red, green and blue of linear light; above 1 is brighter than the screen.
using TLight = TVector;

inline double Clamp01(double v)
{
    return v < 0 ? 0 : v > 1 ? 1 : v;
}
inline double Mix(double a, double b, double t)
{
    return a + (b - a) * t;
}
inline TVector Mix(TVector a, TVector b, double t)
{
    return a + (b - a) * t;
}
// 0 below `from`, 1 above `to`, smooth in between.
double Step(double from, double to, double v);

// A number 0..1 that depends on the cell and on nothing else.
double Chance(int x, int y, int z);
// Gradient noise, about -1..1, features of size 1.
double Noise(TVector at);
// Noise of several sizes, each half as large and half as strong as the one before.
double Clouds(TVector at, int octaves);

// A colour of 0xRRGGBB as linear light.
TLight Color(unsigned rgb);

// A picture without pixels: y runs from 0 at the top to 1 at the bottom, x from 0 to 1.6.
class TScene
{
public:
    virtual ~TScene() = default;
    virtual TLight At(double x, double y) const = 0;
};

// Antialiased with several rays a pixel; dithered, so that smooth skies show no bands.
TBitmap Paint(const TScene& scene, TSize size);

} // namespace murala
