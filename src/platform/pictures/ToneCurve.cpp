#include "platform/pictures/ToneCurve.h"

#include <cmath>
#include <cstdlib>
#include <numeric>

namespace
{
constexpr int step = 1000;
constexpr double white = 255;
} // namespace

ToneCurve ContrastCurve(int amount)
{
    const double power = std::exp2(-static_cast<double>(amount) / step);
    ToneCurve curve;
    for (std::size_t level = 0; level < curve.size(); ++level) {
        const double share = static_cast<double>(level) / white;
        curve[level] = static_cast<unsigned char>(std::lround(white * std::pow(share, power)));
    }
    return curve;
}

std::vector<int> BrightnessSteps(int brightness)
{
    const std::size_t whole = static_cast<std::size_t>(std::abs(brightness) / step);
    std::vector<int> steps(whole, brightness > 0 ? step : -step);
    if (const int rest = brightness % step; rest > 0) steps.push_back(rest);
    return steps;
}

ToneCurve BrightnessCurve(int brightness)
{
    ToneCurve curve;
    std::iota(curve.begin(), curve.end(), static_cast<unsigned char>(0));
    for (const int amount : BrightnessSteps(brightness)) {
        const ToneCurve next = ContrastCurve(amount);
        for (unsigned char& level : curve) level = next[level];
    }
    return curve;
}
