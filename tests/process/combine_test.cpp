#include "process/combine.h"

#include "process/reference.h"

#include <limits>

namespace kelvane::test {
namespace {

cDIBSection summed(const cDIBSection& from, const cDIBSection& to, const SumPart& a,
                   const SumPart& b) {
    // Unsigned, because sums wrap.
    const auto u = [](std::int32_t value) { return static_cast<std::uint32_t>(value); };
    const std::array<std::uint32_t, 3> s_offset{u(a.offset_r), u(a.offset_g), u(a.offset_g)};
    const std::array<std::uint32_t, 3> t_offset{u(b.offset_r), u(b.offset_g), u(b.offset_b)};
    return each_channel(to, [&](int x, int y, std::size_t c) {
        const std::uint32_t s = u(pixel_at(from, x, y)[c]) + s_offset[c];
        const std::uint32_t t = u(pixel_at(to, x, y)[c]) + t_offset[c];
        return static_cast<std::int32_t>(s * u(a.multiplier) + t * u(b.multiplier));
    });
}

TEST(AddImages, AgainstTheReference) {
    constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
    const std::pair<SumPart, SumPart> cases[] = {
        {{-1, 0, 0, 0}, {2, 0, 0, 0}},
        {{1, 127, 127, 127}, {0, 0, 0, 0}},
        {{1, 10, 20, 30}, {-1, -40, 5, 60}},
        {{63, 1, 2, 3}, {-63, 4, 5, 6}},
        {{1, 20000, 20000, 20000}, {1, 20000, 20000, 20000}}, // beyond 16 signed bits
        {{1000, -100, -101, -102}, {-999, -103, -104, -105}},
        {{most, most, -most, 7}, {-most, most, 8, 9}},
    };
    for (const auto& [a, b] : cases)
        for (const auto& [width, height] : odd_sizes()) {
            const cDIBSection from = random_picture(width, height, 1);
            const cDIBSection original = random_picture(width, height, 2);
            SCOPED_TRACE(a.multiplier);
            expect_at_every_level(
                original, summed(from, original, a, b),
                [&, a = a, b = b](ImageView to, ImageView) { AddImages(from.view(), to, a, b); });
        }
}

using Selection = void (*)(ConstImageView, ImageView, ProgressObserver*);

Bgr selected(Selection select, const Bgr& from, const Bgr& to) {
    const cDIBSection source = flat_picture(2, 2, from[0], from[1], from[2]);
    cDIBSection target = flat_picture(2, 2, to[0], to[1], to[2]);
    select(source.view(), target.view(), nullptr);
    return pixel_at(target, 1, 1);
}

TEST(Selection, LightestKeepsTheSmallerMeasureDarkestTheLarger) {
    const std::array black{0, 0, 0}, red{0, 0, 255}, dim{10, 10, 0}, dim_red{10, 10, 255};
    const std::array green{0, 1, 0}, blue{14, 0, 0}, dim_blue{13, 0, 0}; // 929, 994, 923
    const std::array<Bgr, 4> cases[] = {{red, black, black, black},
                                        {dim, dim_red, dim_red, dim_red},
                                        {green, blue, green, blue},
                                        {blue, green, green, blue},
                                        {green, dim_blue, dim_blue, green}};
    for (const auto& [from, to, lightest, darkest] : cases) {
        EXPECT_EQ(selected(AddLightest, from, to), lightest);
        EXPECT_EQ(selected(AddDarkest, from, to), darkest);
    }
}

TEST(Combination, ReadsALargerSourceAndReportsOnlyItsEnd) {
    const cDIBSection from = random_picture(9, 8, 1);
    cDIBSection to = flat_picture(5, 4, 255, 255, 255);
    RecordingObserver observer;
    AddLightest(from.view(), to.view(), &observer);
    AddDarkest(from.view(), to.view(), &observer);
    AddImages(from.view(), to.view(), {1, 0, 0, 0}, {0, 0, 0, 0}, &observer);
    const auto corner = [&](int x, int y) { return pixel_at(from, x, y); };
    EXPECT_TRUE(same_pixels(to, each_pixel(to, corner)));
    EXPECT_TRUE(observer.maxima.empty() && observer.positions.empty());
    EXPECT_EQ(observer.times.size(), 3u);
}

} // namespace
} // namespace kelvane::test
