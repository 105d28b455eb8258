#include "process/point_rows.h"

#include "base/cpu.h"
#include "process/hls_rgb.h"

#include <algorithm>
#include <cstring>

namespace kelvane {
namespace {

// The sum is at most 255000; a remainder of exactly one half rounds to the even neighbour.
std::uint8_t luminance_of(const std::uint8_t* pixel) {
    const unsigned sum = 222u * pixel[2] + 707u * pixel[1] + 71u * pixel[0];
    const unsigned whole = sum / 1000;
    const unsigned rest = sum % 1000;
    return static_cast<std::uint8_t>(whole + (rest > 500 || (rest == 500 && whole % 2 == 1)));
}

void grey(std::uint8_t* pixels, int count) {
    for (; count > 0; --count, pixels += 3)
        pixels[0] = pixels[1] = pixels[2] = luminance_of(pixels);
}

void luminance(const std::uint8_t* pixels, std::uint8_t* greys, int count) {
    for (; count > 0; --count, pixels += 3)
        *greys++ = luminance_of(pixels);
}

void spread(const std::uint8_t* greys, std::uint8_t* pixels, int count) {
    for (; count > 0; --count, pixels += 3)
        std::memset(pixels, *greys++, 3);
}

void invert(std::uint8_t* pixels, int count) {
    for (int i = 0; i < 3 * count; ++i)
        pixels[i] = static_cast<std::uint8_t>(~pixels[i]);
}

// For n = b x level, which is at most 255 x 255: n / 255 = (n + 1 + n / 256) / 256.
void fade(std::uint8_t* pixels, int count, int level) {
    const auto factor = static_cast<std::uint16_t>(level);
    for (int i = 0; i < 3 * count; ++i) {
        const auto n = static_cast<std::uint16_t>(pixels[i] * factor);
        pixels[i] = static_cast<std::uint8_t>(static_cast<std::uint16_t>(n + 1 + (n >> 8)) >> 8);
    }
}

std::uint8_t to_byte(int channel) {
    return static_cast<std::uint8_t>(std::clamp(channel, 0, 255));
}

mHLSRGB::Hls hls_of(const std::uint8_t* pixel) {
    return mHLSRGB::RGBToHLS(pixel[2], pixel[1], pixel[0]);
}

void store(const mHLSRGB::Hls& colour, std::uint8_t* pixel) {
    const mHLSRGB::Rgb rgb = mHLSRGB::HLSToRGB(colour);
    pixel[0] = to_byte(rgb.b);
    pixel[1] = to_byte(rgb.g);
    pixel[2] = to_byte(rgb.r);
}

void lighten(std::uint8_t* pixels, int count, float factor) {
    for (; count > 0; --count, pixels += 3) {
        mHLSRGB::Hls colour = hls_of(pixels);
        colour.L = std::min(colour.L * factor, 1.0f);
        store(colour, pixels);
    }
}

void colourise(std::uint8_t* pixels, int count, float hue) {
    for (; count > 0; --count, pixels += 3) {
        mHLSRGB::Hls colour = hls_of(pixels);
        if (colour.H == 0) colour.S = 0.5f;
        colour.H = hue;
        store(colour, pixels);
    }
}

} // namespace

const PointRows kBaselinePointRows{grey, luminance, spread, invert, fade, lighten, colourise};

const PointRows& point_rows() {
    return fastest(kBaselinePointRows, kAvx2PointRows);
}

} // namespace kelvane
