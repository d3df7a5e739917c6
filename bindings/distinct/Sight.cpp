#include "Sight.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace styleatlas::distinct
{
namespace
{

using Triple = std::array<double, 3>;
using Matrix = std::array<Triple, 3>;

// From linear red, green and blue to X, Y and Z, with white at (0.95047, 1, 1.08883).
constexpr Matrix ToXyz{{{0.4124564, 0.3575761, 0.1804375},
                        {0.2126729, 0.7151522, 0.0721750},
                        {0.0193339, 0.1191920, 0.9503041}}};
constexpr Triple White{0.95047, 1.0, 1.08883};

constexpr Matrix ProtanSight{
    {{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}};
constexpr Matrix DeutanSight{
    {{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}};
constexpr Matrix TritanSight{
    {{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}};

Triple Times(const Matrix& matrix, const Triple& vector)
{
    Triple product{};
    for (std::size_t row = 0; row < product.size(); ++row) {
        for (std::size_t i = 0; i < vector.size(); ++i)
            product[row] += matrix[row][i] * vector[i];
    }
    return product;
}

double Linear(std::uint8_t value)
{
    const double share = value / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

Triple LinearRgb(Color color)
{
    return {Linear(color.Red()), Linear(color.Green()), Linear(color.Blue())};
}

double Luminance(const Triple& linear)
{
    return Times(ToXyz, linear)[1];
}

// A screen shows no more than it can.
Triple Simulated(const Matrix& sight, const Triple& linear)
{
    Triple seen = Times(sight, linear);
    for (double& part : seen)
        part = std::clamp(part, 0.0, 1.0);
    return seen;
}

Triple LinearSeen(Color color, Sight sight)
{
    const Triple linear = LinearRgb(color);
    switch (sight) {
    case Sight::Normal:
        return linear;
    case Sight::Protan:
        return Simulated(ProtanSight, linear);
    case Sight::Deutan:
        return Simulated(DeutanSight, linear);
    case Sight::Tritan:
        return Simulated(TritanSight, linear);
    case Sight::Greyscale:
        break;
    }
    const double luminance = Luminance(linear);
    return {luminance, luminance, luminance};
}

constexpr double Degree = std::numbers::pi / 180;

// From 0 to 360 degrees.
double Hue(double a, double b)
{
    const double hue = a == 0 && b == 0 ? 0 : std::atan2(b, a) / Degree;
    return hue < 0 ? hue + 360 : hue;
}

// 1 for strong colours, 0 for greys.
double Saturation(double chroma)
{
    const double power = std::pow(chroma, 7);
    return std::sqrt(power / (power + std::pow(25.0, 7)));
}

double Square(double value)
{
    return value * value;
}

} // namespace

Lab Seen(Color color, Sight sight)
{
    Triple xyz = Times(ToXyz, LinearSeen(color, sight));
    for (std::size_t i = 0; i < xyz.size(); ++i) {
        const double share = xyz[i] / White[i];
        xyz[i] = share > 216.0 / 24389 ? std::cbrt(share) : (24389.0 / 27 * share + 16) / 116;
    }
    return {116 * xyz[1] - 16, 500 * (xyz[0] - xyz[1]), 200 * (xyz[1] - xyz[2])};
}

double Difference(const Lab& one, const Lab& other)
{
    const double meanOfChromas = (std::hypot(one.a, one.b) + std::hypot(other.a, other.b)) / 2;
    const double stretch = 1 + (1 - Saturation(meanOfChromas)) / 2;
    const double chroma1 = std::hypot(stretch * one.a, one.b);
    const double chroma2 = std::hypot(stretch * other.a, other.b);
    const double hue1 = Hue(stretch * one.a, one.b);
    const double hue2 = Hue(stretch * other.a, other.b);
    const bool hasGrey = chroma1 * chroma2 == 0;

    // The way round the circle of hues is the shorter one.
    double hueStep = hasGrey ? 0 : hue2 - hue1;
    double hue = hasGrey ? hue1 + hue2 : (hue1 + hue2) / 2;
    if (std::abs(hueStep) > 180) {
        hueStep += hueStep > 0 ? -360 : 360;
        hue += hue1 + hue2 < 360 ? 180 : -180;
    }
    const double lightness = (one.l + other.l) / 2;
    const double chroma = (chroma1 + chroma2) / 2;
    const double lightnessStep = other.l - one.l;
    const double chromaStep = chroma2 - chroma1;
    const double hueDistance = 2 * std::sqrt(chroma1 * chroma2) * std::sin(hueStep / 2 * Degree);

    const double hueWeight = 1 - 0.17 * std::cos((hue - 30) * Degree) + 0.24 * std::cos(2 * hue * Degree) +
                             0.32 * std::cos((3 * hue + 6) * Degree) -
                             0.20 * std::cos((4 * hue - 63) * Degree);
    const double lightnessScale = 1 + 0.015 * Square(lightness - 50) / std::sqrt(20 + Square(lightness - 50));
    const double chromaScale = 1 + 0.045 * chroma;
    const double hueScale = 1 + 0.015 * chroma * hueWeight;
    const double turn = 30 * std::exp(-Square((hue - 275) / 25));
    const double blueTerm = -2 * Saturation(chroma) * std::sin(2 * turn * Degree);

    const double l = lightnessStep / lightnessScale;
    const double c = chromaStep / chromaScale;
    const double h = hueDistance / hueScale;
    return std::sqrt(l * l + c * c + h * h + blueTerm * c * h);
}

double Contrast(Color one, Color other)
{
    const auto [darker, lighter] = std::minmax({Luminance(LinearRgb(one)), Luminance(LinearRgb(other))});
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace styleatlas::distinct
