// The check of lines and gaps on shapes at many angles and positions between the pixels.
#include "export/disc.h"
#include "export/width_check.h"
#include "support/pictures.h"

#include <cmath>
#include <functional>
#include <random>

namespace kelvane::test {
namespace {

BitPicture bits(const std::vector<std::string>& lines) {
    return drawn_pixels(drawn(lines).view());
}

std::vector<std::string> lines_of(const BitPicture& picture) {
    std::vector<std::string> lines;
    for (int y = picture.height() - 1; y >= 0; --y) {
        lines.emplace_back();
        for (int x = 0; x < picture.width(); ++x)
            lines.back() += picture.get(x, y) ? '#' : '.';
    }
    return lines;
}

// Areas of set pixels that hang together, by corners too.
std::uint64_t areas(BitPicture picture) {
    std::uint64_t count = 0;
    std::vector<std::pair<int, int>> open;
    for (int i = 0; i < picture.width() * picture.height(); ++i) {
        open.emplace_back(i % picture.width(), i / picture.width());
        count += picture.get(open[0].first, open[0].second);
        while (!open.empty()) {
            const auto [x, y] = open.back();
            open.pop_back();
            if (x < 0 || y < 0 || x >= picture.width() || y >= picture.height()) continue;
            if (!picture.get(x, y)) continue;
            picture.clear(x, y);
            for (int near = 0; near < 9; ++near)
                open.emplace_back(x - 1 + near % 3, y - 1 + near / 3);
        }
    }
    return count;
}

// Plane shapes around the origin; lengths in pixels.
using Shape = std::function<bool(double x, double y)>;

Shape rectangle(double width, double height, double x0 = 0, double y0 = 0) {
    return [=](double x, double y) {
        return std::abs(x - x0) < width / 2 && std::abs(y - y0) < height / 2;
    };
}

Shape ring(double inner, double outer, double x0 = 0) {
    return [=](double x, double y) {
        const double radius = std::hypot(x - x0, y);
        return radius >= inner && radius < outer;
    };
}

Shape triangle(double inner_radius) {
    return [=](double x, double y) {
        return y > -inner_radius && std::abs(x) * std::sqrt(3) + y < 2 * inner_radius;
    };
}

Shape both(Shape a, Shape b) {
    return [=](double x, double y) { return a(x, y) || b(x, y); };
}

// A stroke with round ends.
Shape stroke(double x0, double y0, double x1, double y1, double width) {
    return [=](double x, double y) {
        const double dx = x1 - x0, dy = y1 - y0;
        const double t = ((x - x0) * dx + (y - y0) * dy) / (dx * dx + dy * dy);
        const double along = std::clamp(t, 0., 1.);
        return std::hypot(x - x0 - along * dx, y - y0 - along * dy) < width / 2;
    };
}

Shape letter_a(double width) {
    const double h = 3 * width;
    return both(both(stroke(-h, -h, 0, h, width), stroke(h, -h, 0, h, width)),
                stroke(-h / 2, 0, h / 2, 0, width));
}

// Draws the shape at one angle, moved by parts of a pixel; `light`: in a dark square.
BitPicture draw(const Shape& shape, double angle, double reach, bool light) {
    const int side = 2 * static_cast<int>(reach) + 3;
    const double c = std::cos(angle), s = std::sin(angle), middle = side / 2. + std::fmod(angle, 1);
    cDIBSection picture = flat_picture(side, side, 129, 0, 0);
    for (int row = 0; row < side; ++row)
        for (int column = 0; column < side; ++column) {
            const double x = column + .5 - middle, y = row + .5 - middle;
            if (shape(c * x + s * y, c * y - s * x) != light)
                picture.view().pixel(column, row)[0] = 128;
        }
    return drawn_pixels(picture.view());
}

// Reports on the shape dark and light, each at six angles.
void check_shape(const std::string& name, const Shape& shape, double reach, double limit,
                 std::uint64_t places, double width = 0) {
    for (const bool light : {false, true})
        for (int turn = 0; turn < 6; ++turn) {
            const BitPicture picture = draw(shape, turn * .57, reach, light);
            SCOPED_TRACE(name + (light ? ", light" : ", dark") + ", limit " +
                         std::to_string(limit) + ", turn " + std::to_string(turn));
            const WidthReport report =
                check_widths(picture, light ? WidthOf::Gaps : WidthOf::Lines, limit);
            ASSERT_EQ(report.places, places);
            ASSERT_EQ(areas(report.too_thin), places);
            ASSERT_EQ(report.thinnest.has_value(), places != 0);
            if (width > 0) {
                ASSERT_NEAR(report.thinnest->width, width, .2 * width + 1);
            }
        }
}

TEST(WidthCheck, ThickShapesAreNotReported) {
    for (const double limit : {3., 7.3, 12., 30.}) {
        const double thick = 1.2 * limit + 1.01;
        check_shape("square", rectangle(thick, thick), 2 * thick, limit, 0);
        check_shape("bar", rectangle(3 * thick, thick), 3 * thick, limit, 0);
        check_shape("triangle", triangle(thick / 2), 2 * thick, limit, 0);
        check_shape("large triangle", triangle(thick), 3 * thick, limit, 0);
        check_shape("ring", ring(limit, limit + thick), 4 * thick, limit, 0);
        check_shape("A", letter_a(thick), 6 * thick, limit, 0);
    }
}

TEST(WidthCheck, ThinShapesAreReported) {
    for (const double limit : {3.2, 5., 12., 30.}) {
        const double thick = 1.2 * limit + 1.01, thin = std::max(1.5, .8 * limit - 1.01);
        const double side = 2 * thick, length = 1.5 * limit + 5, reach = 4 * thick + length;
        const Shape square = rectangle(side, side);
        check_shape("dot", ring(0, .395 * limit), side, limit, 1);
        for (const double w : {1.5, (thin + 1.5) / 2, thin}) {
            check_shape("bar", rectangle(4 * limit, w), reach, limit, 1, w);
            const Shape arm = rectangle(length, w, (side + length) / 2 - 1);
            check_shape("arm", both(square, arm), reach, limit, 1, w);
            const Shape other = rectangle(side, side, side + length - 2);
            check_shape("link", both(both(square, other), arm), 2 * reach, limit, 1, w);
        }
    }
}

// Light around the ink; what light gaps have in common with dark lines is tested above.
TEST(WidthCheck, GapsLieBetweenAndInsideShapes) {
    for (const double limit : {4., 12., 30.}) {
        const double thick = 1.2 * limit + 1.01, thin = .8 * limit - 1.01;
        for (int turn = 0; turn < 6; ++turn) {
            SCOPED_TRACE("limit " + std::to_string(limit) + ", turn " + std::to_string(turn));
            const auto gaps = [&](const Shape& shape) {
                return check_widths(draw(shape, turn * .57, 5 * thick, false), WidthOf::Gaps, limit)
                    .places;
            };
            const auto apart = [&](double gap) { // two bars, side by side
                const double x = (thick + gap) / 2;
                return both(rectangle(thick, 3 * thick, -x), rectangle(thick, 3 * thick, x));
            };
            EXPECT_EQ(gaps(apart(thin)), 1u);
            EXPECT_EQ(gaps(apart(thick)), 0u);
            const Shape base = rectangle(3 * thick, thick, 0, -2 * thick); // joins the bars
            EXPECT_EQ(gaps(both(base, apart(thin))), 1u);
            EXPECT_EQ(gaps(both(base, apart(thick))), 0u);
            EXPECT_EQ(gaps(ring(thin / 2, 2 * thick)), 1u);
            EXPECT_EQ(gaps(ring(thick / 2, 2 * thick)), 0u);
            const double x = thick + thin / 2; // two dots
            EXPECT_EQ(gaps(both(ring(0, thick, -x), ring(0, thick, x))), 1u);
            EXPECT_EQ(gaps(letter_a(2 * thick)), 0u);
        }
    }
}

TEST(WidthCheck, ReportsPlacesThinnestAndPixels) {
    const BitPicture picture = bits({"..............", //
                                     ".####.........", //
                                     ".##########...", //
                                     ".##########...", //
                                     ".####.....#...", //
                                     ".####.........", //
                                     ".####...#.....", //
                                     "........##..#.", //
                                     ".....#...##...", //
                                     "......#...#..."});
    const WidthReport lines = check_widths(picture, WidthOf::Lines, 3);
    EXPECT_EQ(lines.places, 4u);
    EXPECT_EQ(lines_of(lines.too_thin),
              (std::vector<std::string>{"..............", //
                                        "..............", //
                                        ".....######...", //
                                        ".....######...", //
                                        "..........#...", //
                                        "..............", //
                                        "........#.....", //
                                        "........##..#.", //
                                        ".....#...##...", //
                                        "......#...#..."}));
    ASSERT_TRUE(lines.thinnest);
    EXPECT_EQ(lines.thinnest->width, 1);
    EXPECT_EQ(std::pair(lines.thinnest->x, lines.thinnest->y), std::pair(6, 0));
}

TEST(WidthCheck, WholePixelsAlongTheAxesAreExact) {
    for (const auto& [width, height] : {std::pair{100, 6}, {6, 100}, {1400, 702}}) {
        const BitPicture bar = drawn_pixels(flat_picture(width, height, 0, 0, 0).view());
        const double thickness = std::min(width, height);
        for (const double limit : {-1., 0., thickness, thickness + 1e-9, std::nan("")})
            EXPECT_EQ(check_widths(bar, WidthOf::Lines, limit).places, 0u) << limit;
        for (const double limit : {thickness + .001, 1e6, 1e300}) {
            const WidthReport report = check_widths(bar, WidthOf::Lines, limit);
            EXPECT_EQ(report.places, 1u) << limit;
            EXPECT_EQ(report.thinnest->width, thickness);
            EXPECT_EQ(lines_of(report.too_thin), lines_of(bar));
            EXPECT_EQ(check_widths(bar, WidthOf::Gaps, limit).places, 0u);
        }
    }
}

TEST(WidthCheck, SmallestPictures) {
    EXPECT_EQ(check_widths(drawn_pixels({}), WidthOf::Lines, 9).places, 0u);
    for (const auto& lines : std::vector<std::vector<std::string>>{{"."}, {"#"}, {".", "#"}})
        for (const double limit : {1., 2., 500.}) {
            const BitPicture picture = bits(lines);
            const bool speck = lines.back() == "#" && limit > 1;
            EXPECT_EQ(check_widths(picture, WidthOf::Lines, limit).places, speck ? 1u : 0u);
            EXPECT_EQ(check_widths(picture, WidthOf::Gaps, limit).places, 0u);
        }
}

TEST(WidthCheck, CountsAreasThatHangTogether) {
    for (std::uint32_t seed = 0; seed < 40; ++seed) {
        const BitPicture noise = drawn_pixels(random_picture(5 + 7 * int(seed), 60, seed).view());
        const WidthReport report = check_widths(noise, WidthOf::Lines, 200); // all is too thin
        EXPECT_EQ(report.places, areas(noise));
        EXPECT_EQ(lines_of(report.too_thin), lines_of(noise));
    }
}

TEST(WidthCheck, TheThinnestPixelIsTooThin) {
    std::mt19937 random(5);
    for (int round = 0; round < 30; ++round) {
        Shape dots = [](double, double) { return false; };
        for (int i = 0; i < 25; ++i) {
            const double x0 = random() % 80 - 40., y0 = random() % 80 - 40., r = 3 + random() % 9;
            dots = both(dots, [=](double x, double y) { return std::hypot(x - x0, y - y0) < r; });
        }
        const BitPicture picture = draw(dots, 0, 50, false);
        for (const WidthOf what : {WidthOf::Lines, WidthOf::Gaps}) {
            const WidthReport report = check_widths(picture, what, 9);
            EXPECT_EQ(areas(report.too_thin), report.places);
            if (!report.thinnest) continue;
            EXPECT_TRUE(report.too_thin.get(report.thinnest->x, report.thinnest->y)) << round;
        }
    }
}

TEST(WidthCheck, ChecksWhatAnExportDraws) {
    const BitPicture picture = bits({"#..", ".##"});
    EXPECT_EQ(lines_of(picture), (std::vector<std::string>{"#..", "..."})) << "the lost run";
    EXPECT_TRUE(picture.any(0, 0, 3, 2));
    EXPECT_TRUE(picture.any(0, 1, 1, 2));
    EXPECT_FALSE(picture.any(1, 0, 3, 2));
    EXPECT_FALSE(picture.any(0, 0, 3, 1));
    EXPECT_FALSE(picture.any(0, 0, 0, 2));
}

// The obvious opening (of dark) or closing (of light, which has no end). `rows` are the widths of
// the disc's rows, which are centred.
BitPicture obvious(const BitPicture& picture, const std::vector<int>& rows, bool opening) {
    const int width = picture.width(), height = picture.height();
    const int size = static_cast<int>(rows.size());
    BitPicture result(width, height);
    if (!opening) result = drawn_pixels(flat_picture(width, height, 0, 0, 0).view());
    for (int bottom = 1 - size; bottom < height; ++bottom)
        for (int left = 1 - size; left < width; ++left)
            for (const bool covers : {false, true}) {
                bool fits = true;
                for (int i = 0; i < size * size && fits; ++i) {
                    const int x = left + i % size, y = bottom + i / size;
                    if (std::abs(2 * (i % size) + 1 - size) >= rows[i / size]) continue;
                    const bool inside = x >= 0 && y >= 0 && x < width && y < height;
                    if (!covers)
                        fits = (inside && picture.get(x, y)) == opening;
                    else if (inside && result.get(x, y) != opening)
                        result.row(y)[x / 64] ^= BitPicture::Word{1} << x % 64;
                }
                if (!fits) break;
            }
    return result;
}

TEST(Disc, OpensAndClosesAsTheObviousLoopDoes) {
    const std::vector<std::vector<int>> discs{{1},
                                              {2, 2},
                                              {2, 4, 4, 2},
                                              {3, 5, 7, 7, 7, 5, 3},
                                              {4, 8, 10, 10, 12, 12, 12, 12, 10, 10, 8, 4}};
    std::mt19937 random(3);
    for (const auto& [width, height] : odd_sizes({{64, 20}, {128, 30}, {191, 25}}))
        for (const std::vector<int>& rows : discs)
            for (const bool opening : {true, false}) {
                cDIBSection blobs = flat_picture(width, height, opening ? 255 : 0, 0, 0);
                const int size = static_cast<int>(rows.size());
                for (int i = 0; i < 1 + width * height / (2 * size * size); ++i) {
                    const int x0 = int(random() % width) - size / 2, w = 1 + random() % (2 * size);
                    const int y0 = int(random() % height) - size / 2, h = 1 + random() % (2 * size);
                    for (int y = std::max(0, y0); y < std::min(height, y0 + h); ++y)
                        for (int x = std::max(0, x0); x < std::min(width, x0 + w); ++x)
                            blobs.view().pixel(x, y)[0] = opening ? 0 : 255;
                }
                const BitPicture picture = drawn_pixels(blobs.view());
                BitPicture actual = picture;
                const Disc disc(size);
                opening ? disc.open(actual) : disc.close(actual);
                const BitPicture expected = obvious(picture, rows, opening);
                for (int y = 0; y < height; ++y)
                    for (int i = -1; i <= expected.row_words(); ++i) // with the clear words around
                        ASSERT_EQ(actual.row(y)[i], expected.row(y)[i])
                            << size << " on " << width << " x " << height << ": word " << i
                            << " of row " << y << (opening ? ", dark" : ", light");
            }
}

} // namespace
} // namespace kelvane::test
