#include "image/resample.h"
#include "image/resample_rows.h"

#include "support/every_level.h"
#include "support/pictures.h"

#include <algorithm>
#include <cmath>

namespace kelvane::test {
namespace {

int blend(int a, int b, double weight_b) {
    return static_cast<int>(std::nearbyint((1 - weight_b) * a + weight_b * b));
}

cDIBSection resampled(const cDIBSection& from, int width, int height) {
    const double x_scale = static_cast<double>(from.Width() - 1) / width;
    const double y_scale = static_cast<double>(from.Height() - 1) / height;
    cDIBSection to = black_picture(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const int ix = static_cast<int>(std::floor(x * x_scale));
            const int iy = static_cast<int>(std::floor(y * y_scale));
            const auto column = [&](int at, std::size_t c) {
                return blend(pixel_at(from, at, iy)[c],
                             pixel_at(from, at, std::min(iy + 1, from.Height() - 1))[c],
                             y * y_scale - iy);
            };
            for (std::size_t c = 0; c < 3; ++c)
                to.view().pixel(x, y)[c] = static_cast<std::uint8_t>(
                    blend(column(ix, c), column(std::min(ix + 1, from.Width() - 1), c),
                          x * x_scale - ix));
        }
    return to;
}

TEST(Resample, AgainstTheReference) {
    const std::pair<int, int> targets[] = {{1, 1}, {2, 3}, {4, 4}, {33, 5}, {64, 40}, {7, 90}};
    for (const auto& [width, height] : odd_sizes())
        for (const auto& [to_width, to_height] : targets) {
            if (width == to_width && height == to_height) continue;
            const cDIBSection from = random_picture(width, height, 3);
            const cDIBSection expected = resampled(from, to_width, to_height);
            at_every_level([&, to_width = to_width, to_height = to_height] {
                EXPECT_TRUE(same_pixels(from.Resample(to_height, to_width), expected))
                    << "from " << from.Width() << " x " << from.Height();
            });
        }
}

// Every pair of samples, with weights whose products lie on halves, beside them and elsewhere.
TEST(Resample, EveryPairOfSamplesAtHalvesAndBesideThem) {
    std::vector<double> weights{0, std::nextafter(1.0, 0.0), std::nextafter(0.5, 0.0), 0x1p-17};
    for (const int parts : {2, 3, 4, 6, 10, 302, 400, 510, 1200})
        for (int k = 1; k < parts; k += 1 + parts / 7)
            weights.insert(weights.end(), {static_cast<double>(k) / parts, k * (1.0 / parts)});
    std::vector<std::uint8_t> a(0x10000), b(a.size()), expected(a.size()), actual(a.size());
    for (std::size_t k = 0; k < a.size(); ++k) {
        a[k] = static_cast<std::uint8_t>(k);
        b[k] = static_cast<std::uint8_t>(k >> 8);
    }
    const int count = static_cast<int>(a.size());
    at_every_level([&] {
        for (const double weight : weights) {
            for (std::size_t k = 0; k < a.size(); ++k)
                expected[k] = static_cast<std::uint8_t>(blend(a[k], b[k], weight));
            resample_rows().one_weight(a.data(), b.data(), actual.data(), count, weight);
            EXPECT_EQ(actual, expected) << "one weight, " << weight;
            const FixedWeight fixed = fixed_weight(weight);
            const std::vector<double> exact(a.size(), weight);
            const std::vector<std::int16_t> high(a.size(), fixed.high), low(a.size(), fixed.low),
                second(a.size(), fixed.second);
            resample_rows().many_weights(a.data(), b.data(), actual.data(), count,
                                         {exact.data(), high.data(), low.data(), second.data()});
            EXPECT_EQ(actual, expected) << "many weights, " << weight;
        }
    });
}

TEST(Resample, SameSizeIsACopyAndHopelessSizesAreRefused) {
    const cDIBSection from = random_picture(6, 5, 1);
    EXPECT_TRUE(same_pixels(from.Resample(5, 6), from));
    EXPECT_TRUE(from.Resample(0, 6).empty());
    EXPECT_TRUE(from.Resample(1 << 20, 1 << 20).empty());
    EXPECT_TRUE(cDIBSection{}.Resample(4, 4).empty());
}

} // namespace
} // namespace kelvane::test
