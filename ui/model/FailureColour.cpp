#include "ui/model/FailureColour.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::uint32_t kDarkRed = 0x1C2BC4;
constexpr std::uint32_t kLightRed = 0xA499FF;

// Relative luminance and contrast as the Web Content Accessibility Guidelines define them.
double Luminance(std::uint32_t colour) {
    constexpr double kWeights[] = {0.2126, 0.7152, 0.0722};  // red, green, blue
    double luminance = 0;
    for (const double weight : kWeights) {
        const double part = (colour & 0xFF) / 255.0;
        luminance += weight * (part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4));
        colour >>= 8;
    }
    return luminance;
}

double Contrast(std::uint32_t left, std::uint32_t right) {
    const auto [darker, lighter] = std::minmax({Luminance(left), Luminance(right)});
    return (lighter + 0.05) / (darker + 0.05);
}

}  // namespace

std::uint32_t FailureColour(bool isHighContrast, std::uint32_t hotLight, std::uint32_t background) {
    if (isHighContrast) {
        return hotLight;
    }
    return Contrast(kDarkRed, background) >= Contrast(kLightRed, background) ? kDarkRed : kLightRed;
}
