// What users must get from an export, for every picture: checked on the finished script.
#include "export/script_reader.h"
#include "export/vectorize.h"
#include "support/drawn_picture.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <numeric>
#include <random>

namespace kelvane::test {
namespace {

constexpr double kSize = 2;

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

// Holes of areas joined by edges, from the Euler number of the 2 x 2 neighbourhoods.
int holes(const Cells& mask) {
    int euler_times_4 = 0;
    for (int y = -1; y < mask.height(); ++y)
        for (int x = -1; x < mask.width(); ++x) {
            const int a = mask.get(x, y), b = mask.get(x + 1, y);
            const int c = mask.get(x, y + 1), d = mask.get(x + 1, y + 1);
            const int dark = a + b + c + d;
            euler_times_4 += dark == 1 ? 1 : dark == 3 ? -1 : dark == 2 && a == d ? 2 : 0;
        }
    return components(mask, false) - euler_times_4 / 4;
}

class Export {
  public:
    Export(const cDIBSection& picture, bool autotrace, ShapeKind shape)
        : mask_(dark_cells(picture.view())) {
        ExportOptions options;
        options.exp = autotrace;
        options.optPoly = shape;
        options.size = kSize;
        report_ = Vectorize(picture.view(), folder_ / "s.scr", options);
        text_ = file_text(folder_ / "s.scr");
        script_ = parse_script(text_, kSize);
    }
    const Cells& mask() const { return mask_; }
    const Script& script() const { return script_; }
    const ExportReport& report() const { return report_; }
    const std::string& text() const { return text_; }

  private:
    TemporaryFolder folder_;
    Cells mask_;
    ExportReport report_;
    std::string text_;
    Script script_;
};

void check_polygons(const cDIBSection& picture) {
    const Export result(picture, true, kShapePolygon);
    SCOPED_TRACE(result.mask().drawing() + result.text());
    const std::vector<HalfPath>& polygons = result.script().polygons;
    EXPECT_EQ(coverage_fault(polygons, result.mask()), "");
    const auto strips = static_cast<std::uint64_t>(holes(result.mask()));
    EXPECT_EQ(result.report().bridges, strips);
    EXPECT_EQ(polygons.size(), components(result.mask(), true) + strips);
    EXPECT_EQ(result.report().shapes, polygons.size() - strips);
}

using UnitEdges = std::map<std::pair<HalfPoint, HalfPoint>, int>;

UnitEdges border_of(const Cells& mask) {
    UnitEdges border;
    for (int y = 0; y <= mask.height(); ++y)
        for (int x = 0; x <= mask.width(); ++x) {
            if (mask.get(x, y) != mask.get(x - 1, y))
                border[{{2 * x, 2 * y}, {2 * x, 2 * y + 2}}] = 1;
            if (mask.get(x, y) != mask.get(x, y - 1))
                border[{{2 * x, 2 * y}, {2 * x + 2, 2 * y}}] = 1;
        }
    return border;
}

void check_wires(const cDIBSection& picture) {
    const Export result(picture, true, kShapeWire);
    SCOPED_TRACE(result.mask().drawing() + result.text());
    UnitEdges drawn;
    for (const HalfPath& chain : result.script().chains) {
        for (std::size_t i = 0; i < chain.size(); ++i) {
            const auto [from, to] = std::minmax(chain[i], chain[(i + 1) % chain.size()]);
            const HalfPoint step{from.x < to.x ? 2 : 0, from.y < to.y ? 2 : 0};
            for (HalfPoint p = from; p < to; p = {p.x + step.x, p.y + step.y})
                ++drawn[{p, {p.x + step.x, p.y + step.y}}];
        }
    }
    EXPECT_EQ(drawn, border_of(result.mask()));
    EXPECT_EQ(coverage_fault(result.script().chains, result.mask()), "");
    EXPECT_EQ(result.script().chains.size(),
              static_cast<std::size_t>(components(result.mask(), true) + holes(result.mask())));
}

void check_linewise(const cDIBSection& picture) {
    const Export polygons(picture, false, kShapePolygon);
    EXPECT_EQ(coverage_fault(polygons.script().polygons, polygons.mask()), "");
    const Export wires(picture, false, kShapeWire);
    EXPECT_EQ(wires.script().chains, polygons.script().polygons);
    const Export rectangles(picture, false, kShapeRectangle);
    ASSERT_EQ(rectangles.script().rectangles.size(), polygons.script().polygons.size());
    for (std::size_t i = 0; i < polygons.script().polygons.size(); ++i) {
        const HalfPath& corners = polygons.script().polygons[i];
        EXPECT_EQ(rectangles.script().rectangles[i], (HalfPath{corners[0], corners[2]}));
    }
}

void check_all(const cDIBSection& picture) {
    check_polygons(picture);
    check_wires(picture);
    check_linewise(picture);
}

TEST(Autotrace, DrawnPictures) {
    check_all(drawn({"..", ".."}));
    check_all(drawn({"#"}));
    check_all(drawn({"##", "##"}));
    // Rings: closed by an edge, by corners alone, by corners and an edge, within one another.
    check_all(drawn({".###", ".#.#", ".###", "...."}));
    check_all(drawn({"..#.", ".#.#", "..#.", "...."}));
    check_all(drawn({"..##", ".#.#", "..##", "...."}));
    check_all(drawn(
        {".#######", ".#.....#", ".#.###.#", ".#.#.#.#", ".#.###.#", ".#.....#", ".#######"}));
    // Bridges whose ends meet corners, ends of runs and further bridges.
    check_all(drawn({"##.##", "#.#.#", "#####"}));
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
        cDIBSection picture;
        ASSERT_TRUE(picture.Create(2 + kSide * 6, 2 + kSide * 5));
        std::memset(picture.DIBSectionBitsPtr(), 255,
                    std::size_t(picture.BytesPerScanLine()) * std::size_t(picture.Height()));
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
        cDIBSection picture;
        const int width = 1 + static_cast<int>(random() % (round % 40 == 0 ? 150 : 24));
        ASSERT_TRUE(picture.Create(width, 1 + static_cast<int>(random() % 24)));
        const unsigned dark_of_8 = 1 + random() % 7;
        for (int y = 0; y < picture.Height(); ++y)
            for (int x = 0; x < width; ++x)
                picture.view().pixel(x, y)[0] = random() % 8 < dark_of_8 ? 128 : 129;
        check_all(picture);
    }
}

TEST(Autotrace, LargeSpiralNeedsNoStack) {
    // One outline that winds through the whole picture.
    constexpr int kSide = 1500;
    cDIBSection picture;
    ASSERT_TRUE(picture.Create(kSide, kSide));
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x) {
            const int ring = std::min({x, y, kSide - 1 - x, kSide - 1 - y});
            const bool gap = x == ring + 1 && y == kSide - 2 - ring;
            picture.view().pixel(x, y)[0] = ring % 2 == 0 && !gap ? 0 : 255;
        }
    const Export result(picture, true, kShapePolygon);
    EXPECT_EQ(result.report().shapes, static_cast<std::uint64_t>(components(result.mask(), true)));
}

} // namespace
} // namespace kelvane::test
