// What users must get from an export, for every picture: checked on the finished script.
#include "export/script_reader.h"
#include "export/vectorize.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"

#include <random>

namespace kelvane::test {
namespace {

int components(const Cells& mask, bool with_corners) {
    Cells seen(mask.width(), mask.height());
    int count = 0;
    for (int i = 0; i < mask.width() * mask.height(); ++i) {
        std::vector<std::pair<int, int>> open{{i % mask.width(), i / mask.width()}};
        bool fresh = false;
        while (!open.empty()) {
            const auto [x, y] = open.back();
            open.pop_back();
            if (mask.get(x, y) == 0 || seen.at(x, y) != 0) continue;
            fresh = true;
            seen.at(x, y) = 1;
            for (int dy = -1; dy <= 1; ++dy)
                for (int dx = -1; dx <= 1; ++dx)
                    if (with_corners || dx == 0 || dy == 0) open.emplace_back(x + dx, y + dy);
        }
        count += fresh;
    }
    return count;
}

// Holes of areas joined by edges: what light there is besides the surroundings, joined by corners.
int holes(const Cells& mask) {
    Cells light(mask.width() + 2, mask.height() + 2);
    for (int y = 0; y < light.height(); ++y)
        for (int x = 0; x < light.width(); ++x)
            light.at(x, y) = 1 - mask.get(x - 1, y - 1);
    return components(light, true) - 1;
}

struct Export {
    Export(const cDIBSection& picture, bool autotrace, ShapeKind shape)
        : mask(dark_cells(picture.view())) {
        const TemporaryFolder folder;
        ExportOptions options;
        options.exp = autotrace;
        options.optPoly = shape;
        options.size = 2;
        report = Vectorize(picture.view(), folder / "s.scr", options);
        text = file_text(folder / "s.scr");
        script = parse_script(text, options.size);
    }
    Cells mask;
    ExportReport report;
    std::string text;
    Script script;
};

void check_polygons(const cDIBSection& picture) {
    const Export made(picture, true, kShapePolygon);
    SCOPED_TRACE(made.mask.drawing() + made.text);
    EXPECT_EQ(coverage_fault(made.script.polygons, made.mask), "");
    const auto strips = static_cast<std::uint64_t>(holes(made.mask));
    EXPECT_EQ(made.report.bridges, strips);
    EXPECT_EQ(made.script.polygons.size(), components(made.mask, true) + strips);
    EXPECT_EQ(made.report.shapes, made.script.polygons.size() - strips);
}

int border_length(const Cells& mask) {
    int pixels = 0;
    for (int y = 0; y <= mask.height(); ++y)
        for (int x = 0; x <= mask.width(); ++x)
            pixels +=
                (mask.get(x, y) != mask.get(x - 1, y)) + (mask.get(x, y) != mask.get(x, y - 1));
    return kPixel * pixels;
}

void check_wires(const cDIBSection& picture) {
    const Export made(picture, true, kShapeWire);
    SCOPED_TRACE(made.mask.drawing() + made.text);
    const std::vector<Path>& chains = made.script.chains;
    EXPECT_EQ(coverage_fault(chains, made.mask), "");
    EXPECT_EQ(chains.size(), std::size_t(components(made.mask, true) + holes(made.mask)));
    int drawn = 0;
    for (const Path& chain : chains)
        for (std::size_t i = 0; i < chain.size(); ++i) {
            const Point& to = chain[(i + 1) % chain.size()];
            drawn += std::abs(to.x - chain[i].x) + std::abs(to.y - chain[i].y);
        }
    EXPECT_EQ(drawn, border_length(made.mask)) << "a line is drawn there and back";
}

void check_linewise(const cDIBSection& picture) {
    const Export made(picture, false, kShapePolygon);
    const std::vector<Path>& polygons = made.script.polygons;
    EXPECT_EQ(coverage_fault(polygons, made.mask), "");
    EXPECT_EQ(Export(picture, false, kShapeWire).script.chains, polygons);
    std::vector<Path> rectangles;
    for (const Path& corners : polygons)
        rectangles.push_back({corners[0], corners[2]});
    EXPECT_EQ(Export(picture, false, kShapeRectangle).script.rectangles, rectangles);
}

void check_all(const cDIBSection& picture) {
    check_polygons(picture);
    check_wires(picture);
    check_linewise(picture);
}

// Larger than those of the other tests: areas within holes, and bridges whose ends meet corners,
// ends of runs and further bridges.
TEST(Autotrace, DrawnPictures) {
    check_all(drawn(
        {".#######", ".#.....#", ".#.###.#", ".#.#.#.#", ".#.###.#", ".#.....#", ".#######"}));
    check_all(drawn({"#.#.#.#", "#######", "#.#.#.#", "#######", "#.#.#.#"}));
    check_all(drawn({"#######", ".#.#.#.", "#######", ".#.#.#.", "#######"}));
    check_all(drawn({"###.###", "#.#.#.#", "##.#.##", "#.#.#.#", "###.###"}));
    check_all(drawn({"####...", "#..#...", "####...", "...####", "...#..#", "...####"}));
    check_all(drawn({"...####", "...#..#", "...####", "####...", "#..#...", "####..."}));
}

TEST(Autotrace, EverySmallPicture) {
    // All patterns of 4 x 3 pixels, 64 of them to a picture, two columns and rows apart so that
    // none touches another nor stands where a run is lost.
    constexpr int kSide = 8;
    for (unsigned first = 0; first < 1u << 12 && !HasFailure(); first += kSide * kSide) {
        cDIBSection picture = flat_picture(2 + kSide * 6, 2 + kSide * 5, 255, 255, 255);
        for (int cell = 0; cell < kSide * kSide; ++cell)
            for (int i = 0; i < 12; ++i)
                if ((first + unsigned(cell)) >> i & 1)
                    picture.view().pixel(2 + cell % kSide * 6 + i % 4,
                                         2 + cell / kSide * 5 + i / 4)[0] = 0;
        check_polygons(picture);
        check_wires(picture);
    }
}

TEST(Autotrace, RandomPictures) {
    std::mt19937 random(20);
    for (int round = 0; round < 400 && !HasFailure(); ++round) {
        const int width = 1 + static_cast<int>(random() % (round % 40 == 0 ? 150 : 24));
        cDIBSection picture = black_picture(width, 1 + static_cast<int>(random() % 24));
        const unsigned dark_of_8 = 1 + random() % 7;
        for (int y = 0; y < picture.Height(); ++y)
            for (int x = 0; x < width; ++x)
                picture.view().pixel(x, y)[0] = random() % 8 < dark_of_8 ? 128 : 129;
        check_all(picture);
    }
}

TEST(Autotrace, DrawingsAreAsDarkAsTheirPartsOfThePicture) {
    for (const ShapeKind shape : {kShapePolygon, kShapeWire}) {
        const cDIBSection picture = random_picture(60, 60, 6);
        const Cells dark = dark_cells(picture.view());
        ExportOptions options;
        options.optPoly = shape;
        cDIBSection drawing = black_picture(20, 12); // of 3 x 5 pixels each
        DrawExport(picture.view(), options, drawing.view());
        for (int part = 0; part < 20 * 12; ++part) {
            int light = 255;
            for (int i = 0; i < 15; ++i)
                light -= 17 * dark.get(part % 20 * 3 + i % 3, part / 20 * 5 + i / 3);
            ASSERT_EQ(drawing.view().pixel(part % 20, part / 20)[0], light) << shape << ' ' << part;
        }
    }
}

TEST(Autotrace, LargeSpiralNeedsNoStack) {
    // One outline that winds through the whole picture.
    constexpr int kSide = 1500;
    cDIBSection picture = black_picture(kSide, kSide);
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x) {
            const int ring = std::min({x, y, kSide - 1 - x, kSide - 1 - y});
            const bool gap = x == ring + 1 && y == kSide - 2 - ring;
            picture.view().pixel(x, y)[0] = ring % 2 == 0 && !gap ? 0 : 255;
        }
    const Export made(picture, true, kShapePolygon);
    EXPECT_EQ(made.report.shapes, static_cast<std::uint64_t>(components(made.mask, true)));
}

} // namespace
} // namespace kelvane::test
