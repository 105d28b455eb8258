#include "reduce/black_white.h"

#include "image/cpu.h"
#include "process/grayscale.h"
#include "support/pictures.h"
#include "support/recording_observer.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstdlib>
#include <stdexcept>

namespace kelvane::test {
namespace {

using testing::ElementsAre;

void put(cDIBSection& picture, int x, int y, bool black) {
    std::memset(picture.view().pixel(x, y), black ? 0 : 255, 3);
}

cDIBSection slow_black_white(cDIBSection source, int limit) {
    GrayScale(source.view());
    for (int x = 0; x < source.Width(); ++x)
        for (int y = 0; y < source.Height(); ++y)
            put(source, x, y, pixel_at(source, x, y)[0] <= limit);
    return source;
}

cDIBSection slow_line_art(cDIBSection source, int limit, Channels use) {
    const int count = use.red + use.green + use.blue;
    for (int x = 0; x < source.Width(); ++x)
        for (int y = 0; y < source.Height(); ++y) {
            const auto [b, g, r] = pixel_at(source, x, y);
            const int sum = (use.red ? r : 0) + (use.green ? g : 0) + (use.blue ? b : 0);
            put(source, x, y, std::nearbyint(static_cast<double>(sum) / count) <= limit);
        }
    return source;
}

int packed(const cDIBSection& picture, int x, int y) {
    const auto [b, g, r] = pixel_at(picture, x, y);
    return r * 65536 + g * 256 + b;
}

cDIBSection slow_edges(const cDIBSection& source, cDIBSection result, int limit) {
    const double threshold = std::pow(limit, 3);
    for (int x = source.Width() - 1; x >= 1; --x)
        for (int y = source.Height() - 1; y >= 1; --y) {
            put(result, x, y,
                std::abs(packed(source, x, y) - packed(source, x, y - 1)) >= threshold);
            put(result, x, y,
                std::abs(packed(source, x, y) - packed(source, x - 1, y)) >= threshold);
        }
    return result;
}

std::vector<std::pair<int, int>> sizes_across_strips() {
    std::vector<std::pair<int, int>> sizes = odd_sizes();
    sizes.insert(sizes.end(), {{4097, 3}, {4098, 3}, {8300, 3}});
    return sizes;
}

class Reduction : public testing::TestWithParam<CpuLevel> {
    CpuLevelCap cap_{GetParam()};
};
INSTANTIATE_TEST_SUITE_P(EachProcessor, Reduction,
                         testing::Values(CpuLevel::Baseline, CpuLevel::Avx2));

TEST_P(Reduction, BlackAndWhiteIsGreyThenThreshold) {
    for (const int limit : {-1, 0, 1, 100, 127, 128, 254, 255, 32767, -32768})
        for (const auto& [width, height] : sizes_across_strips()) {
            cDIBSection source = random_picture(width, height, 3);
            cDIBSection destination = black_picture(width, height);
            const cDIBSection expected = slow_black_white(source.Copy(), limit);
            BlackAndWhite2(source.view(), destination.view(), limit);
            ASSERT_TRUE(same_pixels(source, expected)) << limit;
            ASSERT_TRUE(same_pixels(destination, expected)) << limit;
        }
}

TEST_P(Reduction, GreysAroundTheLimit) {
    // All reds and greens: sums on both sides of every half.
    cDIBSection colours = black_picture(256, 256);
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 256; ++x) {
            colours.view().pixel(x, y)[0] = static_cast<std::uint8_t>(x ^ y);
            colours.view().pixel(x, y)[1] = static_cast<std::uint8_t>(x);
            colours.view().pixel(x, y)[2] = static_cast<std::uint8_t>(y);
        }
    for (int limit = 0; limit < 256; limit += 5) {
        cDIBSection source = colours.Copy();
        BlackAndWhite(source.view(), source.view(), limit);
        ASSERT_TRUE(same_pixels(source, slow_black_white(colours.Copy(), limit))) << limit;
    }
}

TEST_P(Reduction, LineArtIsTheRoundedMeanOfTheChosenChannels) {
    for (int choice = 1; choice < 8; ++choice)
        for (const int limit : {0, 63, 100, 254}) {
            const Channels use{(choice & 1) != 0, (choice & 2) != 0, (choice & 4) != 0};
            cDIBSection source = random_picture(301, 20, 12);
            cDIBSection destination = black_picture(301, 20);
            const cDIBSection expected = slow_line_art(source.Copy(), limit, use);
            LineArt2(source.view(), destination.view(), limit, use);
            ASSERT_TRUE(same_pixels(source, expected)) << choice << ' ' << limit;
            ASSERT_TRUE(same_pixels(destination, expected)) << choice << ' ' << limit;
        }
    cDIBSection pixel = flat_picture(1, 1, 255, 255, 100);
    LineArt2(pixel.view(), pixel.view(), 100, {true, false, false});
    EXPECT_THAT(pixel_at(pixel, 0, 0), ElementsAre(0, 0, 0));
    EXPECT_THROW(LineArt2(pixel.view(), pixel.view(), 1, {}), std::invalid_argument);
}

TEST_P(Reduction, EdgesLookAtTheLeftNeighbourAndSpareTheFirstRowAndColumn) {
    for (const int limit : {-5, 0, 20, 120, 200, 256, 32767})
        for (const auto& [width, height] : sizes_across_strips()) {
            cDIBSection source = random_picture(width, height, 3);
            cDIBSection destination = random_picture(width, height, 4);
            const cDIBSection expected = slow_edges(source, destination.Copy(), limit);
            const cDIBSection in_place = slow_edges(source, source.Copy(), limit);
            cDIBSection same = source.Copy();
            EdgeDetect2(source.view(), destination.view(), limit);
            ASSERT_TRUE(same_pixels(source, expected)) << limit;
            ASSERT_TRUE(same_pixels(destination, expected)) << limit;
            EdgeDetect2(same.view(), same.view(), limit);
            ASSERT_TRUE(same_pixels(same, in_place)) << limit;
        }
}

TEST(Reduction, Events) {
    cDIBSection picture = random_picture(5, 4, 1);
    RecordingObserver grey_first;
    BlackAndWhite2(picture.view(), picture.view(), 128, &grey_first);
    EXPECT_THAT(grey_first.maxima, ElementsAre(12, 12));
    EXPECT_THAT(grey_first.positions, ElementsAre(0, 3, 6, 9, 12, 0, 3, 6, 9, 12));
    EXPECT_EQ(grey_first.times.size(), 2u);
    RecordingObserver edges;
    EdgeDetect2(picture.view(), picture.view(), 10, &edges);
    EXPECT_THAT(edges.maxima, ElementsAre(12));
    EXPECT_THAT(edges.positions, ElementsAre(3, 6, 9, 12)); // column 0 is not visited
    EXPECT_EQ(edges.times.size(), 1u);
}

} // namespace
} // namespace kelvane::test
