// Conversion between red-green-blue and hue-lightness-saturation.
#pragma once

namespace kelvane::mHLSRGB {

/// Lightness and saturation lie in 0 to 1. Hue counts sextants from -1 to 5: 0 is red, 2 green,
/// 4 blue, below 0 lies magenta to red. A grey has hue 0 and saturation 0.
struct Hls {
    float H;
    float L;
    float S;
};

struct Rgb {
    int r;
    int g;
    int b;
};

/// Channels 0 to 255 each. Every step is rounded to single precision. Where two channels share
/// the maximum, red goes before green and green before blue.
Hls RGBToHLS(int r, int g, int b);

/// The way back, each channel rounded to the nearest integer, halves to even. Nothing is clamped:
/// values outside the ranges above give channels outside 0 to 255.
Rgb HLSToRGB(const Hls& colour);

} // namespace kelvane::mHLSRGB
