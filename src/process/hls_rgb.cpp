#include "process/hls_rgb.h"

#include <algorithm>
#include <cmath>

namespace kelvane::mHLSRGB {
namespace {

float hue(float r, float g, float b, float max, float range) {
    if (r == max) return (g - b) / range;
    if (g == max) return 2 + (b - r) / range;
    return 4 + (r - g) / range;
}

int to_channel(float value) {
    return static_cast<int>(std::lrint(value * 255));
}

Rgb to_rgb(float r, float g, float b) {
    return {to_channel(r), to_channel(g), to_channel(b)};
}

} // namespace

Hls RGBToHLS(int red, int green, int blue) {
    const float r = static_cast<float>(red) / 255;
    const float g = static_cast<float>(green) / 255;
    const float b = static_cast<float>(blue) / 255;
    const float max = std::max({r, g, b});
    const float min = std::min({r, g, b});
    const float L = (max + min) / 2;
    if (max == min) return {0, L, 0};
    const float range = max - min;
    const float S = L <= 0.5f ? range / (max + min) : range / (2 - max - min);
    return {hue(r, g, b, max, range), L, S};
}

Rgb HLSToRGB(const Hls& colour) {
    const auto [H, L, S] = colour;
    if (S == 0) return to_rgb(L, L, L);
    const float Min = L <= 0.5f ? (1 - S) * L : L - S * (1 - L);
    const float Max = 2 * L - Min;
    const float D = Max - Min;
    if (H < 0) return to_rgb(Max, Min, Min - H * D);
    if (H < 1) return to_rgb(Max, Min + H * D, Min);
    if (H < 2) return to_rgb(Min - (H - 2) * D, Max, Min);
    if (H < 3) return to_rgb(Min, Max, Min + (H - 2) * D);
    if (H < 4) return to_rgb(Min, Min - (H - 4) * D, Max);
    return to_rgb(Min + (H - 4) * D, Min, Max);
}

} // namespace kelvane::mHLSRGB
