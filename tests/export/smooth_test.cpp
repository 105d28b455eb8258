// Smooth drawings of all kinds of pictures, held against the exact ones, and what they are to look
// like.
#include "export/smooth_drawing.h"
#include "export/vectorize.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <numbers>
#include <random>

namespace kelvane::test {
namespace {

struct Drawing {
    Drawing(const cDIBSection& picture, ShapeKind shape, double tolerance) {
        const TemporaryFolder folder;
        ExportOptions options;
        options.optPoly = shape;
        options.smooth = tolerance;
        report = Vectorize(picture.view(), folder / "s.scr", options);
        const Script script = parse_script(file_text(folder / "s.scr"), options.size);
        paths = shape == kShapePolygon ? script.polygons : script.chains;
    }
    ExportReport report;
    std::vector<Path> paths;
};

// The change of area of every outline larger than 50 pixels stays below 1 %.
void expect_areas(const Drawing& smooth, const Drawing& exact) {
    for (std::size_t i = 0; i < exact.paths.size() - exact.report.bridges; ++i) {
        const auto area = static_cast<double>(std::abs(doubled_area(exact.paths[i])));
        const auto made = static_cast<double>(std::abs(doubled_area(smooth.paths[i])));
        if (area <= 50 * 2 * kPixel * kPixel) continue;
        EXPECT_LT(std::abs(made / area - 1), .01);
    }
}

void check(const cDIBSection& picture, double tolerance) {
    SCOPED_TRACE(dark_cells(picture.view()).drawing() + std::to_string(tolerance));
    for (const ShapeKind shape : {kShapePolygon, kShapeWire}) {
        const Drawing exact(picture, shape, 0), smooth(picture, shape, tolerance);
        ASSERT_EQ(smooth_fault(smooth.paths, exact.paths, exact.report.bridges, tolerance), "");
        EXPECT_EQ(smooth.report.bridges, exact.report.bridges);
        expect_areas(smooth, exact);
    }
}

using Shape = std::function<bool(double x, double y)>;

cDIBSection filled(int width, int height, const Shape& dark) {
    cDIBSection picture = black_picture(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            picture.view().pixel(x, y)[0] = dark(x + .5, y + .5) ? 0 : 255;
    return picture;
}

Shape rectangle(double x, double y, double width, double height, double degrees) {
    const double c = std::cos(degrees * std::numbers::pi / 180);
    const double s = std::sin(degrees * std::numbers::pi / 180);
    return [=](double px, double py) {
        const double u = (px - x) * c + (py - y) * s, v = (py - y) * c - (px - x) * s;
        return std::abs(u) < width / 2 && std::abs(v) < height / 2;
    };
}

Shape disc(double x, double y, double radius) {
    return [=](double px, double py) { return std::hypot(px - x, py - y) < radius; };
}

Path smooth_outline(const cDIBSection& picture) {
    return Drawing(picture, kShapePolygon, kMostSmoothing).paths.at(0);
}

constexpr double kTolerances[] = {.5, .49, .4, .3, .25, .05};

TEST(Smooth, EverySmallPicture) {
    // All patterns of 4 x 3 pixels, 1024 of them to a picture.
    constexpr int kSide = 32;
    for (unsigned first = 0; first < 1u << 12; first += kSide * kSide) {
        cDIBSection picture = flat_picture(2 + kSide * 6, 2 + kSide * 5, 255, 255, 255);
        for (unsigned cell = 0; cell < kSide * kSide; ++cell)
            for (unsigned i = 0; i < 12; ++i)
                if ((first + cell) >> i & 1)
                    picture.view().pixel(int(2 + cell % kSide * 6 + i % 4),
                                         int(2 + cell / kSide * 5 + i / 4))[0] = 0;
        for (const double tolerance : {.5, .3}) {
            check(picture, tolerance);
            if (HasFatalFailure()) return;
        }
    }
}

TEST(Smooth, RandomPictures) {
    // Noise of all densities in blocks of up to 4 x 4 pixels, and shapes on top of one another.
    std::mt19937 random(15);
    const auto number = [&](int most) { return static_cast<int>(random() % unsigned(most + 1)); };
    for (int round = 0; round < 200 && !HasFailure(); ++round) {
        const int across = 1 + number(3), up = 1 + number(3), density = 1 + number(14);
        const unsigned noise = random();
        check(filled(1 + number(23), 1 + number(23),
                     [&](double x, double y) {
                         std::minstd_rand cell(noise + unsigned(x) / across +
                                               99 * (unsigned(y) / up));
                         cell.discard(3);
                         return int(cell() >> 8 & 15) < density;
                     }),
              kTolerances[round % 6]);
        const Shape bar = rectangle(number(50), number(50), 60, 1 + number(19), number(180));
        const Shape spot = disc(number(50), number(50), 1 + number(24));
        const Shape hole = disc(number(50), number(50), 1 + number(9));
        check(filled(50, 50,
                     [&](double x, double y) { return (bar(x, y) != spot(x, y)) != hole(x, y); }),
              kTolerances[round % 6]);
    }
}

TEST(Smooth, RingsSpiralsAndCombs) {
    for (const double tolerance : kTolerances) {
        check(
            filled(41, 41,
                   [](double x, double y) { return std::fmod(std::hypot(x - 20, y - 20), 4) < 2; }),
            tolerance);
        for (const double pitch : {2., 3.3})
            check(filled(41, 41,
                         [&](double x, double y) {
                             const double turns =
                                 std::atan2(y - 20, x - 20) / (2 * std::numbers::pi);
                             const double along = std::hypot(x - 20, y - 20) / pitch + turns + 1;
                             return along - std::floor(along) < .5;
                         }),
                  tolerance);
        check(filled(21, 21, [](double x, double y) { return y < 1 || int(x) % 2 == 0; }),
              tolerance);
    }
}

TEST(Smooth, DetailsOfOnePixelAndUprightRectanglesStay) {
    const cDIBSection details = drawn({"#.#.#.#....#...", ".#.#.#.#..###..", "#.#.#.#....#...",
                                       "...............", "#####.#.#.#.#.#", "#...#.########.",
                                       "#.#.#..........", "#...#...####...", "#####...####..#"});
    for (const ShapeKind shape : {kShapePolygon, kShapeWire})
        EXPECT_EQ(Drawing(details, shape, .5).paths, Drawing(details, shape, 0).paths);
}

// How far the longest edge along each side of a turned rectangle is from its direction, in degrees.
std::array<double, 4> side_errors(const Path& path, double degrees) {
    std::array<double, 4> longest{}, errors{};
    for (std::size_t i = 0; i < path.size(); ++i) {
        const Point a = path[i], b = path[(i + 1) % path.size()];
        const double length = std::hypot(b.x - a.x, b.y - a.y);
        const double turned = std::atan2(b.y - a.y, b.x - a.x) * 180 / std::numbers::pi - degrees;
        const double quarters = std::round(turned / 90);
        const std::size_t side = (static_cast<int>(quarters) + 8) % 4;
        if (length <= longest[side]) continue;
        longest[side] = length;
        errors[side] = std::abs(turned - 90 * quarters);
    }
    return errors;
}

TEST(Smooth, SidesOfTurnedRectangles) {
    for (const double middle : {60., 60.1, 60.25, 60.5})
        for (double degrees = 0; degrees < 90; degrees += middle == 60 ? 1. / 6 : .5) {
            const cDIBSection picture =
                filled(121, 121, rectangle(middle, middle, 100, 30, degrees));
            const Path path = smooth_outline(picture);
            EXPECT_LE(path.size(), 12u) << middle << ' ' << degrees;
            const std::array<double, 4> errors = side_errors(path, degrees);
            EXPECT_LT(*std::max_element(errors.begin(), errors.end()), 1)
                << middle << ' ' << degrees;
        }
}

TEST(Smooth, DiscsHaveFewPointsAndTheirArea) {
    // No polygon of fewer than 36 edges stays within half a pixel of the first.
    for (const double tolerance : {.5, .49}) {
        double change = 0;
        for (int i = 0; i < 8; ++i) {
            const cDIBSection picture = filled(206, 206, disc(103 + .13 * i, 103 + .29 * i, 100));
            const Path path = Drawing(picture, kShapePolygon, tolerance).paths.at(0);
            EXPECT_LE(path.size(), tolerance == .5 ? 42u : 46u);
            const auto exact =
                static_cast<double>(Drawing(picture, kShapePolygon, 0).report.dark_pixels);
            change += static_cast<double>(doubled_area(path)) / (2 * kPixel * kPixel * exact) - 1;
        }
        EXPECT_LT(std::abs(change / 8), .0002);
    }
}

} // namespace
} // namespace kelvane::test
