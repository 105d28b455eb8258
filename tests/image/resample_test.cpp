#include "image/resample.h"

#include "support/every_level.h"
#include "support/pictures.h"

#include <algorithm>
#include <cmath>

namespace kelvane {
namespace {

using namespace test;

int blend(int a, int b, double weight_b) {
    return static_cast<int>(std::nearbyint((1 - weight_b) * a + weight_b * b));
}

cDIBSection resampled(const cDIBSection& from, int width, int height) {
    cDIBSection to = black_picture(width, height);
    const double x_scale = static_cast<double>(from.Width() - 1) / width;
    const double y_scale = static_cast<double>(from.Height() - 1) / height;
    for (int y = 0; y < height; ++y) {
        const int iy = static_cast<int>(std::floor(y * y_scale));
        const double dy = y * y_scale - iy;
        const int next_y = std::min(iy + 1, from.Height() - 1);
        for (int x = 0; x < width; ++x) {
            const int ix = static_cast<int>(std::floor(x * x_scale));
            const double dx = x * x_scale - ix;
            const int next_x = std::min(ix + 1, from.Width() - 1);
            for (int c = 0; c < 3; ++c) {
                const ConstImageView source = from.view();
                const int left = blend(source.pixel(ix, iy)[c], source.pixel(ix, next_y)[c], dy);
                const int right =
                    blend(source.pixel(next_x, iy)[c], source.pixel(next_x, next_y)[c], dy);
                to.view().pixel(x, y)[c] =
                    static_cast<std::uint8_t>(std::clamp(blend(left, right, dx), 0, 255));
            }
        }
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

// 5 to 8 gives weights of one half: 0.5 becomes 0, 1.5 becomes 2.
TEST(Resample, RoundsHalvesToEven) {
    cDIBSection from = black_picture(5, 1);
    for (int x = 0; x < 5; ++x)
        from.view().pixel(x, 0)[1] = static_cast<std::uint8_t>(x);
    at_every_level([&] {
        const cDIBSection to = from.Resample(1, 8);
        const int expected[] = {0, 0, 1, 2, 2, 2, 3, 4};
        for (int x = 0; x < 8; ++x)
            EXPECT_EQ(to.view().pixel(x, 0)[1], expected[x]) << x;
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
} // namespace kelvane
