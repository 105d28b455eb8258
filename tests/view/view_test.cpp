// Zoom, scroll position, selection and the pixels of a zoomed picture.
#include "support/pictures.h"
#include "view/scaled_part.h"
#include "view/selection.h"
#include "view/view_geometry.h"

#include <algorithm>
#include <cmath>

namespace kelvane {

static void PrintTo(ViewPoint point, std::ostream* out) {
    *out << point.x << ", " << point.y;
}

namespace test {
namespace {

ViewGeometry geometry(ViewSize picture, ViewSize window, int zoom = ViewGeometry::kOneToOne) {
    ViewGeometry view;
    view.set_picture(picture);
    view.set_window(window);
    view.zoom_to(zoom, {});
    return view;
}

cDIBSection drawn_part(const cDIBSection& picture, const ViewGeometry& view,
                       const PixelRect& part) {
    cDIBSection result = black_picture(part.width, part.height);
    draw_scaled_part(picture.view(), view.across(), view.down(), part.left, part.top,
                     result.view());
    return result;
}

cDIBSection drawn_whole(const cDIBSection& picture, const ViewGeometry& view) {
    return drawn_part(picture, view, {0, 0, view.extent().width, view.extent().height});
}

// The part of [begin, end) that pixel `i` covers.
double overlap(double begin, double end, int i) {
    return std::max(0.0, std::min(end, i + 1.0) - std::max(begin, static_cast<double>(i)));
}

// The mean of the area that pixel (x, y) of `size`, rows from the bottom, covers.
double mean_at(const cDIBSection& picture, ViewSize size, int x, int y, int channel) {
    const double across = static_cast<double>(picture.Width()) / size.width;
    const double down = static_cast<double>(picture.Height()) / size.height;
    double sum = 0;
    for (int row = 0; row < picture.Height(); ++row)
        for (int column = 0; column < picture.Width(); ++column)
            sum += overlap(x * across, (x + 1) * across, column) *
                   overlap(y * down, (y + 1) * down, row) *
                   picture.view().pixel(column, row)[channel];
    return sum / (across * down);
}

TEST(ScaledPart, RepeatsPixelsWhenLarger) {
    const cDIBSection picture = drawn({"#.", ".#"});
    EXPECT_TRUE(same_pixels(drawn_whole(picture, geometry({2, 2}, {}, 30000)),
                            drawn({"###...", "###...", "###...", "...###", "...###", "...###"})));
    EXPECT_TRUE(same_pixels(drawn_whole(picture, geometry({2, 2}, {}, 15000)),
                            drawn({"#..", ".##", ".##"})));
}

TEST(ScaledPart, AveragesAreasWhenSmaller) {
    EXPECT_TRUE(
        same_pixels(drawn_whole(flat_picture(77, 31, 1, 128, 254), geometry({77, 31}, {}, 3333)),
                    flat_picture(26, 10, 1, 128, 254)));
    const cDIBSection picture = random_picture(47, 23, 4);
    for (const int zoom : {500, 1500, 3333, 5000, 8000, 9999}) {
        const ViewGeometry view = geometry({47, 23}, {}, zoom);
        const cDIBSection result = drawn_whole(picture, view);
        for (int y = 0; y < result.Height(); ++y)
            for (int x = 0; x < result.Width(); ++x)
                for (int channel = 0; channel < 3; ++channel)
                    ASSERT_NEAR(result.view().pixel(x, y)[channel],
                                mean_at(picture, view.extent(), x, y, channel), 2)
                        << zoom << ": " << x << ", " << y;
    }
}

TEST(ScaledPart, IsTheSameWhereverItBegins) {
    const cDIBSection picture = random_picture(40, 30, 5);
    for (const int zoom : {3333, 6667, 10000, 15000, 70000}) {
        const ViewGeometry view = geometry({40, 30}, {}, zoom);
        const cDIBSection whole = drawn_whole(picture, view);
        const PixelRect part{5, 3, 7, 6};
        cDIBSection expected = black_picture(part.width, part.height);
        Crop(whole.view(), part, expected.view());
        EXPECT_TRUE(same_pixels(drawn_part(picture, view, part), expected)) << zoom;
    }
}

TEST(ViewGeometry, ZoomsAboutAPointAndByStepsToItsLimits) {
    ViewGeometry view = geometry({1000, 800}, {300, 200});
    view.scroll_to({350, 300});
    const ViewPoint point{120, 70};
    for (const int zoom : {15000, 60000, 320000, 30000, 10000}) {
        view.zoom_to(zoom, point);
        EXPECT_EQ(view.pixel_at(point), (ViewPoint{470, 370})) << zoom;
    }
    std::vector<int> steps;
    for (int before = 0; before != view.zoom(); view.zoom_to(view.larger_zoom(), point))
        steps.push_back(before = view.zoom());
    EXPECT_EQ(steps, (std::vector<int>{10000, 15000, 20000, 30000, 40000, 60000, 80000, 120000,
                                       160000, 240000, 320000}));
    for (int i = 0; i < 30; ++i)
        view.zoom_to(view.smaller_zoom(), point);
    EXPECT_EQ(view.zoom(), 500);
    EXPECT_EQ(view.extent(), (ViewSize{50, 40}));
    EXPECT_EQ(view.scroll(), ViewPoint{}) << "the whole picture fits";
    EXPECT_EQ(geometry({700000000, 1}, {}, 320000).extent().width, 1073730000)
        << "no longer than an integer counts";
}

TEST(ViewGeometry, FitsScrollsAndShowsBarsAsNeeded) {
    ViewGeometry view = geometry({3000, 100}, {800, 600});
    EXPECT_EQ(view.fitting_zoom({800, 600}), 2666);
    EXPECT_EQ(geometry({16, 16}, {}).fitting_zoom({800, 600}), 320000);
    view.scroll_to({5000, 5000});
    EXPECT_EQ(view.scroll(), (ViewPoint{2200, 0}));
    view.show_pixel({100, 5});
    EXPECT_EQ(view.scroll(), (ViewPoint{100, 0}));
    view.show_pixel({900, 5});
    EXPECT_EQ(view.scroll(), (ViewPoint{101, 0}));
    const auto bars = [](ViewSize picture) {
        const auto [across, down] = geometry(picture, {}).bars_within({100, 100}, {17, 16});
        return std::pair{across, down};
    };
    EXPECT_EQ(bars({100, 100}), std::pair(false, false));
    EXPECT_EQ(bars({101, 84}), std::pair(true, false));
    EXPECT_EQ(bars({101, 85}), std::pair(true, true)) << "the bar covers the last row";
    EXPECT_EQ(bars({84, 101}), std::pair(true, true));
}

TEST(ViewGeometry, PlaceOfPixelsIsWhereTheyAreFound) {
    for (const int zoom : {3333, 10000, 15000, 70000, 320000}) {
        ViewGeometry view = geometry({50, 40}, {200, 100}, zoom);
        view.scroll_to({33, 21});
        const PixelRect place = view.place_of({20, 15, 3, 2});
        for (const int x : {0, place.width - 1})
            for (const int y : {0, place.height - 1}) {
                const ViewPoint pixel = view.pixel_at({place.left + x, place.top + y});
                EXPECT_TRUE(pixel.x >= 20 && pixel.x <= 22 && pixel.y >= 15 && pixel.y <= 16)
                    << zoom << ": " << pixel.x << ", " << pixel.y;
            }
        if (zoom < 10000) continue;
        EXPECT_EQ(view.pixel_at({place.left - 1, place.top - 1}), (ViewPoint{19, 14})) << zoom;
        EXPECT_EQ(view.pixel_at({place.left + place.width, place.top + place.height}),
                  (ViewPoint{23, 17}))
            << zoom;
    }
}

TEST(Selection, SpansItsCornersAndStaysInThePicture) {
    Selection selection;
    EXPECT_EQ(selection.rect(), std::nullopt);
    selection.span({5, 6}, {5, 6});
    selection.move_corner(-3, 100, {10, 20});
    EXPECT_EQ(selection.rect(), (PixelRect{2, 6, 4, 14}));
    selection.move(10, -2, {10, 20});
    EXPECT_EQ(selection.rect(), (PixelRect{6, 4, 4, 14}));
    EXPECT_EQ(selection.corner(), (ViewPoint{6, 17}));
    selection.clear();
    EXPECT_EQ(selection.rect(), std::nullopt);
}

} // namespace
} // namespace test
} // namespace kelvane
