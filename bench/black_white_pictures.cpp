#include "black_white_pictures.h"

#include <array>
#include <cmath>
#include <cstring>
#include <random>
#include <vector>

namespace kelvane::bench {
namespace {

template <typename IsDark> cDIBSection picture_of(IsDark is_dark) {
    cDIBSection picture;
    if (!picture.Create(kWidth, kHeight)) throw std::bad_alloc();
    const ImageView view = picture.view();
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x)
            std::memset(view.pixel(x, y), is_dark(x, y) ? 0 : 255, 3);
    return picture;
}

// Value noise: random values on a lattice, smoothly interpolated, in [0, 1).
class Noise {
  public:
    explicit Noise(unsigned seed) {
        std::mt19937 random(seed);
        for (double& value : lattice_)
            value = std::uniform_real_distribution<>(0, 1)(random);
    }
    double at(double x, double y) const {
        const int ix = static_cast<int>(x), iy = static_cast<int>(y);
        const double u = fade(x - ix), v = fade(y - iy);
        return mix(mix(value(ix, iy), value(ix + 1, iy), u),
                   mix(value(ix, iy + 1), value(ix + 1, iy + 1), u), v);
    }

  private:
    static constexpr int kSide = 256;
    static double fade(double t) { return t * t * (3 - 2 * t); }
    static double mix(double a, double b, double t) { return a + (b - a) * t; }
    double value(int x, int y) const { return lattice_[x % kSide + kSide * (y % kSide)]; }
    std::array<double, kSide * kSide> lattice_{};
};

const std::vector<double>& field() {
    static const std::vector<double> values = [] {
        const Noise noise(7);
        std::vector<double> made;
        made.reserve(std::size_t{kWidth} * kHeight);
        for (int y = 0; y < kHeight; ++y)
            for (int x = 0; x < kWidth; ++x)
                made.push_back(.55 * noise.at(x / 400., y / 400.) +
                               .25 * noise.at(x / 60., y / 60.) + .15 * noise.at(x / 11., y / 11.) +
                               .05 * noise.at(x / 2., y / 2.));
        return made;
    }();
    return values;
}

double field_at(int x, int y) {
    return field()[static_cast<std::size_t>(y) * kWidth + x];
}

// The 8 x 8 Bayer matrix: bits of x ^ y and y interleaved, the lowest first in weight.
double bayer(int x, int y) {
    int value = 0;
    for (int bit = 0; bit < 3; ++bit)
        value = value << 2 | ((x ^ y) >> bit & 1) << 1 | (y >> bit & 1);
    return (value + .5) / 64;
}

} // namespace

cDIBSection lettering() {
    return picture_of([](int x, int y) {
        constexpr int kCellWidth = 36, kCellHeight = 60;
        const int column = x / kCellWidth, line = y / kCellHeight;
        const unsigned letter = static_cast<unsigned>(column * 7 + line * 13) % 11;
        if (letter == 0) return false; // a blank between words
        const double u = x % kCellWidth - 16, v = y % kCellHeight - 26;
        const double radius = std::hypot(u, v - (letter % 3) * 4.);
        const bool bowl = std::abs(radius - 11) < 2.6 && (letter % 2 == 0 || u < 6);
        const bool stem = std::abs(u + 11) < 2.6 && v > -14 && v < (letter > 5 ? 26 : 14);
        const bool bar = letter % 4 == 1 && std::abs(v) < 2 && std::abs(u) < 11;
        return bowl || stem || bar;
    });
}

cDIBSection photo_field() {
    return picture_of([](int x, int y) { return field_at(x, y) < .5; });
}

cDIBSection ordered_dither() {
    return picture_of([](int x, int y) { return field_at(x, y) < bayer(x, y); });
}

cDIBSection checkerboard() {
    return picture_of([](int x, int y) { return (x + y) % 2 == 0; });
}

} // namespace kelvane::bench
