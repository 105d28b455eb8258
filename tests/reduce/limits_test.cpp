// Reductions that find their limits in the picture.
#include "process/grayscale.h"
#include "process/reference.h"
#include "reduce/local_black_white.h"
#include "reduce/otsu.h"

#include <utility>
#include <vector>

namespace kelvane::test {
namespace {

// So many pixels of each grey.
cDIBSection greys(const std::vector<std::pair<int, int>>& counts) {
    std::vector<int> pixels;
    for (const auto& [count, grey] : counts)
        pixels.insert(pixels.end(), static_cast<std::size_t>(count), grey);
    return each_pixel(black_picture(static_cast<int>(pixels.size()), 1), [&](int x, int) {
        const int grey = pixels[static_cast<std::size_t>(x)];
        return Bgr{grey, grey, grey};
    });
}

// What cv::threshold with THRESH_OTSU answers.
TEST(OtsuLimit, EqualsOpenCv) {
    using Counts = std::vector<std::pair<int, int>>;
    const std::pair<Counts, int> cases[] = {
        {{{1, 77}}, 0},
        {{{1, 0}, {1, 255}}, 0},
        {{{7, 13}, {1, 240}}, 13},
        {{{1, 10}, {1, 20}, {1, 30}}, 10},             // a tie
        {{{1, 0}, {1, 1}, {1, 2}, {1, 3}, {1, 4}}, 2}, // one that rounding decides
        {{{2, 10}, {2, 20}, {2, 30}, {2, 40}}, 20},
        {{{60, 20}, {30, 90}, {10, 210}}, 90},
        {{{5, 3}, {9, 101}, {4, 180}, {2, 255}}, 101},
        {{{7, 30}, {11, 31}, {13, 150}, {3, 151}, {1, 255}}, 31}};
    for (const auto& [counts, limit] : cases)
        EXPECT_EQ(OtsuLimit(greys(counts).view()), limit);
    cDIBSection dot = flat_picture(3000, 2900, 200, 200, 200);
    std::memset(dot.view().pixel(7, 7), 100, 3);
    EXPECT_EQ(OtsuLimit(dot.view()), 0); // too small a share to count
    for (const auto& [seed, limit] : {std::pair{1u, 127}, {2u, 130}, {3u, 125}, {4u, 128}})
        at_every_level([&, s = seed, l = limit] {
            EXPECT_EQ(OtsuLimit(random_picture(67, 19, s).view()), l);
        });
}

cDIBSection slow_local(cDIBSection picture, int size, int offset) {
    GrayScale(picture.view());
    const long area = long{size} * size;
    return each_pixel(picture, [&](int x, int y) {
        long sum = 0;
        for (int j = y - size / 2; j <= y + size / 2; ++j)
            for (int i = x - size / 2; i <= x + size / 2; ++i)
                sum += pixel_at(picture, std::clamp(i, 0, picture.Width() - 1),
                                std::clamp(j, 0, picture.Height() - 1))[0];
        const bool dark = pixel_at(picture, x, y)[0] * area <= sum - offset * area;
        return dark ? Bgr{0, 0, 0} : Bgr{255, 255, 255};
    });
}

void expect_local(const cDIBSection& picture, int size, int offset) {
    SCOPED_TRACE(testing::Message() << size << ", " << offset);
    const cDIBSection expected = slow_local(picture.Copy(), size, offset);
    at_every_level([&] {
        cDIBSection source = picture.Copy();
        cDIBSection destination = black_picture(picture.Width(), picture.Height());
        LocalBlackWhite(source.view(), destination.view(), size, offset);
        EXPECT_TRUE(same_pixels(source, expected));
        EXPECT_TRUE(same_pixels(destination, expected));
    });
    expect_at_every_level(picture, expected, [=](ImageView image, ImageView) {
        LocalBlackWhite(image, image, size, offset);
    });
}

TEST(LocalBlackWhite, IsTheSlowWayPixelByPixel) {
    for (const auto& [width, height] : odd_sizes({{40, 33}}))
        for (const auto& [size, offset] : {std::pair{3, 0}, {5, -20}, {31, 7}, {3, 255}, {3, -255}})
            expect_local(random_picture(width, height, 5), size, offset);
    expect_local(random_picture(5, 3, 6), 999, 1);
    expect_local(flat_picture(2, 2, 255, 255, 255), 999, 0);
    // The mean of nine is 100 and a ninth above or below: nothing is rounded.
    for (const int centre : {99, 100, 101}) {
        cDIBSection picture = flat_picture(3, 3, 100, 100, 100);
        std::memset(picture.view().pixel(1, 1), centre, 3);
        LocalBlackWhite(picture.view(), picture.view(), 3, 0);
        EXPECT_EQ(pixel_at(picture, 1, 1)[0], centre > 100 ? 255 : 0);
        EXPECT_EQ(pixel_at(picture, 0, 0)[0], centre < 100 ? 255 : 0);
    }
}

TEST(Limits, RowsAreReported) {
    const auto local = [](ImageView image, ImageView buffer, ProgressObserver* observer) {
        LocalBlackWhite(image, buffer, 5, 3, observer);
    };
    const auto otsu = [](ImageView image, ImageView, ProgressObserver* observer) {
        OtsuLimit(image, observer);
    };
    expect_events(6, 3, local, {2}, {0, 1, 2});
    expect_events(6, 3, otsu, {2}, {0, 1, 2});
}

} // namespace
} // namespace kelvane::test
