#include "process/dark_bounds.h"
#include "process/reference.h"

#include <limits>
#include <utility>
#include <vector>

namespace kelvane::test {
namespace {

// In place, or into a picture of exchanged sides.
cDIBSection changed(const cDIBSection& picture, void (*change)(ImageView, ProgressObserver*)) {
    cDIBSection result = picture.Copy();
    change(result.view(), nullptr);
    return result;
}

cDIBSection changed(const cDIBSection& picture,
                    void (*change)(ConstImageView, ImageView, ProgressObserver*)) {
    cDIBSection result = black_picture(picture.Height(), picture.Width());
    change(picture.view(), result.view(), nullptr);
    return result;
}

// Pixel (x, y) of the result, both from the upper left, is pixel place(x, y) of the picture.
template <typename Place>
cDIBSection placed(const cDIBSection& picture, int width, int height, Place place) {
    return each_pixel(black_picture(width, height), [&](int x, int y) {
        const auto [from_x, from_y] = place(x, height - 1 - y);
        return pixel_at(picture, from_x, picture.Height() - 1 - from_y);
    });
}

using Point = std::pair<int, int>;

TEST(Geometry, EveryPixelArrivesAtItsPlace) {
    for (const auto& [w, h] : odd_sizes({{67, 130}, {130, 67}, {64, 64}})) {
        const cDIBSection p = random_picture(w, h, 4);
        const int right = w - 1, bottom = h - 1;
        const cDIBSection expected[] = {placed(p, w, h,
                                               [=](int x, int y) {
                                                   return Point{right - x, y};
                                               }),
                                        placed(p, w, h,
                                               [=](int x, int y) {
                                                   return Point{x, bottom - y};
                                               }),
                                        placed(p, w, h,
                                               [=](int x, int y) {
                                                   return Point{right - x, bottom - y};
                                               }),
                                        placed(p, h, w,
                                               [=](int x, int y) {
                                                   return Point{y, bottom - x};
                                               }),
                                        placed(p, h, w, [=](int x, int y) {
                                            return Point{right - y, x};
                                        })};
        at_every_level([&] {
            EXPECT_TRUE(same_pixels(changed(p, Mirror), expected[0]));
            EXPECT_TRUE(same_pixels(changed(p, Flip), expected[1]));
            EXPECT_TRUE(same_pixels(changed(p, RotateHalf), expected[2]));
            EXPECT_TRUE(same_pixels(changed(p, RotateRight), expected[3]));
            EXPECT_TRUE(same_pixels(changed(p, RotateLeft), expected[4]));
        });
    }
}

TEST(Geometry, RowsAreReportedAscending) {
    const auto mirror = [](ImageView image, ImageView, ProgressObserver* observer) {
        Mirror(image, observer);
    };
    const auto flip = [](ImageView image, ImageView, ProgressObserver* observer) {
        Flip(image, observer);
    };
    const auto rotate = [](ImageView image, ImageView buffer, ProgressObserver* observer) {
        RotateRight(image, buffer, observer);
    };
    expect_events(9, 5, mirror, {4}, {0, 1, 2, 3, 4});
    expect_events(9, 5, flip, {2}, {0, 1, 2});
    expect_events(3, 3, rotate, {2}, {0, 1, 2});
}

TEST(Geometry, RectanglesLieInsideOrNot) {
    constexpr int kMost = std::numeric_limits<int>::max();
    for (const PixelRect& rect : {PixelRect{-1, 0, 2, 2},
                                  {0, -1, 2, 2},
                                  {0, 0, 0, 1},
                                  {0, 0, 1, 0},
                                  {1, 0, 4, 3},
                                  {0, 1, 4, 3},
                                  {1, 1, kMost, kMost}})
        EXPECT_FALSE(lies_inside(rect, 4, 3));
    EXPECT_TRUE(lies_inside({0, 0, 4, 3}, 4, 3));
}

TEST(DarkBounds, HoldEveryPixelUpToTheLimit) {
    using Points = std::vector<Point>; // from the upper left
    const std::pair<Points, PixelRect> cases[] = {
        {{{0, 0}}, {0, 0, 1, 1}},
        {{{89, 19}}, {89, 19, 1, 1}},
        {{{40, 3}, {17, 5}, {70, 8}, {30, 11}}, {17, 3, 54, 9}},
        {{{1, 19}}, {1, 19, 1, 1}}, // not drawn by an export, but dark
    };
    for (const auto& [points, bounds] : cases)
        at_every_level([&, points = points, bounds = bounds] {
            cDIBSection picture = flat_picture(90, 20, 129, 129, 129);
            EXPECT_FALSE(DarkBounds(picture.view(), 128));
            for (const auto& [x, y] : points)
                std::memset(picture.view().pixel(x, 19 - y), 128, 3);
            EXPECT_EQ(DarkBounds(picture.view(), 128), bounds);
        });
    expect_events(3, 4,
                  [](ImageView image, ImageView, ProgressObserver* observer) {
                      DarkBounds(image, 128, observer);
                  },
                  {3}, {0, 1, 2, 3});
}

} // namespace
} // namespace kelvane::test
