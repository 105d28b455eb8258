#include "reduce/black_white.h"

#include "process/grayscale.h"
#include "process/reference.h"

#include <cmath>
#include <cstdlib>
#include <stdexcept>

namespace kelvane::test {
namespace {

constexpr Bgr kBlack{0, 0, 0};
constexpr Bgr kWhite{255, 255, 255};

cDIBSection slow_black_white(cDIBSection source, int limit) {
    GrayScale(source.view());
    return each_pixel(
        source, [&](int x, int y) { return pixel_at(source, x, y)[0] <= limit ? kBlack : kWhite; });
}

cDIBSection slow_line_art(const cDIBSection& source, int limit, Channels use) {
    const int count = use.red + use.green + use.blue;
    return each_pixel(source, [&](int x, int y) {
        const auto [b, g, r] = pixel_at(source, x, y);
        const int sum = (use.red ? r : 0) + (use.green ? g : 0) + (use.blue ? b : 0);
        return std::nearbyint(static_cast<double>(sum) / count) <= limit ? kBlack : kWhite;
    });
}

int packed(const cDIBSection& picture, int x, int y) {
    const auto [b, g, r] = pixel_at(picture, x, y);
    return r * 65536 + g * 256 + b;
}

cDIBSection slow_edges(const cDIBSection& source, const cDIBSection& before, int limit) {
    const double threshold = std::pow(limit, 3);
    return each_pixel(before, [&](int x, int y) {
        if (x == 0 || y == 0) return pixel_at(before, x, y);
        const int step = std::abs(packed(source, x, y) - packed(source, x - 1, y));
        return step >= threshold ? kBlack : kWhite;
    });
}

// Into another picture and in place; both pictures become the expected one.
template <typename Operation, typename Reference>
void expect_reduction(const cDIBSection& picture, Operation run, Reference reference) {
    expect_at_every_level(picture, reference(picture),
                          [&](ImageView image, ImageView) { run(image, image); });
    const cDIBSection before = random_picture(picture.Width(), picture.Height(), 4);
    const cDIBSection expected = reference(before);
    at_every_level([&] {
        cDIBSection source = picture.Copy();
        cDIBSection destination = before.Copy();
        run(source.view(), destination.view());
        EXPECT_TRUE(same_pixels(source, expected));
        EXPECT_TRUE(same_pixels(destination, expected));
    });
}

TEST(Reduction, BlackAndWhiteIsGreyThenThreshold) {
    const auto expect_black_white = [](const cDIBSection& picture, int limit) {
        SCOPED_TRACE(limit);
        expect_reduction(
            picture, [&](ImageView from, ImageView to) { BlackAndWhite2(from, to, limit); },
            [&](const cDIBSection&) { return slow_black_white(picture.Copy(), limit); });
    };
    for (const int limit : {-1, 0, 1, 100, 127, 128, 254, 255, 32767, -32768})
        for (const auto& [width, height] : odd_sizes())
            expect_black_white(random_picture(width, height, 3), limit);
    for (int limit = 0; limit < 256; limit += 5)
        expect_black_white(greens_against_reds(), limit);
}

TEST(Reduction, LineArtIsTheRoundedMeanOfTheChosenChannels) {
    const cDIBSection picture = random_picture(301, 20, 12);
    for (int choice = 1; choice < 8; ++choice)
        for (const int limit : {0, 63, 100, 254}) {
            SCOPED_TRACE(testing::Message() << choice << ' ' << limit);
            const Channels use{(choice & 1) != 0, (choice & 2) != 0, (choice & 4) != 0};
            expect_reduction(
                picture, [&](ImageView from, ImageView to) { LineArt2(from, to, limit, use); },
                [&](const cDIBSection&) { return slow_line_art(picture, limit, use); });
        }
    EXPECT_THROW(LineArt2(black_picture(1, 1).view(), black_picture(1, 1).view(), 1, {}),
                 std::invalid_argument);
}

TEST(Reduction, EdgesLookAtTheLeftNeighbourAndSpareTheFirstRowAndColumn) {
    for (const int limit : {-5, 0, 20, 120, 200, 256, 32767})
        for (const auto& [width, height] : odd_sizes()) {
            SCOPED_TRACE(limit);
            const cDIBSection picture = random_picture(width, height, 3);
            expect_reduction(
                picture, [&](ImageView from, ImageView to) { EdgeDetect2(from, to, limit); },
                [&](const cDIBSection& before) { return slow_edges(picture, before, limit); });
        }
}

TEST(Reduction, LargePicturesGoInStrips) {
    expect_strips([](ImageView image, ImageView buffer, ProgressObserver* observer) {
        LineArt2(image, buffer, 128, {true, true, true}, observer);
    });
    expect_strips([](ImageView image, ImageView buffer, ProgressObserver* observer) {
        EdgeDetect2(image, buffer, 120, observer);
    });
}

TEST(Reduction, Events) {
    const auto black_white = [](ImageView image, ImageView, ProgressObserver* observer) {
        BlackAndWhite2(image, image, 128, observer);
    };
    expect_events(5, 4, black_white, {12, 12}, {0, 3, 6, 9, 12, 0, 3, 6, 9, 12}, 2);
    const auto edges = [](ImageView image, ImageView, ProgressObserver* observer) {
        EdgeDetect2(image, image, 10, observer);
    };
    expect_events(5, 4, edges, {12}, {3, 6, 9, 12}); // column 0 is not visited
}

} // namespace
} // namespace kelvane::test
