#include "uScenes.h"

namespace murala
{

namespace
{

constexpr struct {
    double Position;
    unsigned Color;
} Stops[] = {{-0.62, 0x0B1030}, {-0.32, 0x1D2A78}, {-0.12, 0x5B2A9A}, {0.05, 0xC23A8C},
             {0.20, 0xF2735A},  {0.36, 0xFBBE6B},  {0.60, 0xFFF1CF}};

TLight Tone(double value)
{
    TLight tone = Color(Stops[0].Color);
    for (int i = 1; i < 7; ++i)
        tone =
            Mix(tone, Color(Stops[i].Color), Step(Stops[i - 1].Position, Stops[i].Position, value));
    return tone;
}

struct TFold {
    double Height; // of the cloth
    double Tone;
};

// Noise whose place is bent by noise, twice; the folds run along the bends.
TFold FoldAt(double x, double y)
{
    const TVector at = {x * 0.95 + y * 0.35, y * 1.25 - x * 0.3, 0};
    const TVector first = {Clouds(at + TVector{0, 0, 1.5}, 3),
                           Clouds(at + TVector{5.2, 1.3, 8.5}, 3), 0};
    const TVector bent = at + first * 1.9;
    const TVector second = {Clouds(bent + TVector{1.7, 9.2, 3.5}, 3),
                            Clouds(bent + TVector{8.3, 2.8, 6.5}, 3), 0};
    const double flow = Clouds(at + second * 1.7, 3);
    const double waves = std::sin(flow * 24 + second.X * 7 + y * 1.5);
    const double ripples = std::sin(flow * 75 + second.Y * 16 + first.X * 9) * (0.6 + waves * 0.4);
    return {flow * 0.9 + waves * 0.028 + ripples * 0.0042,
            flow * 0.95 + 0.45 * second.Y + 0.30 * (x / 1.6 - y) + 0.05};
}

class TAbstract : public TScene
{
public:
    TLight At(double x, double y) const override
    {
        constexpr double near = 0.0012;
        const TFold fold = FoldAt(x, y);
        const double right = FoldAt(x + near, y).Height, below = FoldAt(x, y + near).Height;
        const TVector normal =
            Normal({(fold.Height - right) / near, (fold.Height - below) / near, 1.25});
        const TVector light = Normal({-0.55, -0.65, 0.6});
        const double facing = Dot(normal, light);
        const double shine = std::pow(Clamp01(Dot(normal, Normal(light + TVector{0, 0, 1}))), 38);
        const TLight cloth = Tone(fold.Tone);
        return cloth * (0.22 + 0.95 * Clamp01(facing * 0.6 + 0.4)) +
               Mix(cloth, Color(0xFFE9D6), 0.35) * (0.42 * shine);
    }
};

} // namespace

std::unique_ptr<TScene> MakeAbstract()
{
    return std::make_unique<TAbstract>();
}

} // namespace murala
