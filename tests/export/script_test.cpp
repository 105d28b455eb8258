// Finished scripts byte for byte.
#include "export/vectorize.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"

#include <algorithm>

namespace kelvane::test {
namespace {

// The script with LF for CR LF.
std::string script_of(const cDIBSection& picture, const ExportOptions& options) {
    const TemporaryFolder folder;
    const ExportReport made = Vectorize(picture.view(), folder / "s.scr", options);
    std::string text = file_text(folder / "s.scr");
    EXPECT_EQ(made.bytes, text.size());
    EXPECT_EQ(std::count(text.begin(), text.end(), '\r'),
              std::count(text.begin(), text.end(), '\n'));
    std::erase(text, '\r');
    return text;
}

ExportOptions with(bool autotrace, ShapeKind shape, std::int16_t layer) {
    ExportOptions options;
    options.exp = autotrace;
    options.optPoly = shape;
    options.lay = layer;
    return options;
}

// The part between the settings and the closing lines.
std::string shapes_of(const cDIBSection& picture, const ExportOptions& options) {
    const std::string text = script_of(picture, options);
    const std::string last_setting = "Set wire_bend 2;\n";
    const std::size_t begin = text.find(last_setting) + last_setting.size();
    return text.substr(begin, text.find("Grid last;") - begin);
}

const cDIBSection& ring() {
    static const cDIBSection picture = drawn({".###", ".#.#", ".###", "...."});
    return picture;
}

TEST(Script, WholeFileOfEachKind) {
    const cDIBSection empty = drawn({".."});
    ExportOptions options = with(true, kShapePolygon, 16);
    options.unit = 3;
    EXPECT_EQ(script_of(empty, options), "Grid mm;\nChange Layer  16 ;\nChange Pour Solid;\n"
                                         "Change Thermals off;\nChange Isolate 0;\n"
                                         "Set wire_bend 2;\nGrid last;\nWindow fit;\n");
    options = with(true, kShapeWire, 16);
    options.unit = 1;
    for (options.ver = 1; options.ver <= 2; ++options.ver)
        EXPECT_EQ(script_of(empty, options), "Grid Inch;\nChange Layer  16 ;\nSet wire_style 2;\n"
                                             "Grid last;\nWindow fit;\n");
    options.unit = 4;
    EXPECT_TRUE(script_of(empty, options).starts_with("Grid ;\n"));
}

TEST(Script, LinewiseShapes) {
    const cDIBSection picture = drawn({"...#..", ".....#", "#....."});
    ExportOptions options = with(false, kShapePolygon, 19);
    options.size = .5;
    EXPECT_EQ(shapes_of(picture, options),
              "Polygon 0 (0 0)\\\n(.5 0)\\\n(.5 .5)\\\n(0 .5)(0 0);\n"
              "Polygon 0 (2.5 .5)\\\n(3 .5)\\\n(3 1)\\\n(2.5 1)(2.5 .5);\n"
              "Polygon 0 (1.5 1)\\\n(2 1)\\\n(2 1.5)\\\n(1.5 1.5)(1.5 1);\n");
    EXPECT_EQ(
        shapes_of(drawn({"##"}), with(false, kShapeWire, 20)),
        "Wire 0 (0 0)(2 0);\nwire 0 (2 0)(2 1);\nwire 0 (2 1)(0 1);\nwire 0 (0 1)(0 0);\n;\n");
    EXPECT_EQ(shapes_of(drawn({"#####.#"}), with(false, kShapeRectangle, 1)),
              "Rect (0 0)(5 1);\nRect (6 0)(7 1);\n");
}

TEST(Script, NamesByLayer) {
    const std::string square = " 0 (0 0)\\\n(1 0)\\\n(1 1)\\\n(0 1)(0 0);\n";
    const std::string chain = " 0 (0 0)(1 0);\nwire 0 (1 0)(1 1);\nwire 0 (1 1)(0 1);\n"
                              "wire 0 (0 1)(0 0);\n;\n";
    const std::tuple<std::int16_t, std::string, std::string> names[] = {
        {1, "Polygon 'Image0'", "wire 'Image0'"},
        {16, "Polygon 'Image0'", "wire 'Image0'"},
        {17, "Polygon Image", "Wire 'Image'"},
        {18, "Polygon Image", "Wire 'Image'"},
        {19, "Polygon", "Wire"}};
    for (const auto& [layer, polygon, wire] : names) {
        EXPECT_EQ(shapes_of(drawn({"#"}), with(true, kShapePolygon, layer)), polygon + square);
        EXPECT_EQ(shapes_of(drawn({"#"}), with(true, kShapeWire, layer)), wire + chain);
    }
}

TEST(Script, BridgedRing) {
    const std::string outline =
        "(1 1)\\\n(4 1)\\\n(4 2.5)\\\n(3 2.5)\\\n(3 2)\\\n(2 2)\\\n(2 3)\\\n"
        "(4 3)\\\n(4 4)\\\n(1 4)(1 1);\n";
    const std::string strip = "(4 2.5)\\\n(4 3)\\\n(3 3)\\\n(3 2.5)(4 2.5);\n";
    // The strip's plain command stands on a line of its own, the named ones do not.
    EXPECT_EQ(shapes_of(ring(), with(true, kShapePolygon, 19)),
              "Polygon 0 " + outline + "Polygon 0 \n" + strip);
    EXPECT_EQ(shapes_of(ring(), with(true, kShapePolygon, 18)),
              "Polygon Image 0 " + outline + "Polygon Image 0 " + strip);
    EXPECT_EQ(shapes_of(ring(), with(true, kShapePolygon, 1)),
              "Polygon 'Image0' 0 " + outline + "Polygon 'Image1' 0 " + strip);
}

TEST(Script, WiresGoAroundHoles) {
    EXPECT_EQ(
        shapes_of(ring(), with(true, kShapeWire, 20)),
        "Wire 0 (1 1)(4 1);\nwire 0 (4 1)(4 4);\nwire 0 (4 4)(1 4);\nwire 0 (1 4)(1 1);\n;\n"
        "Wire 0 (2 2)(2 3);\nwire 0 (2 3)(3 3);\nwire 0 (3 3)(3 2);\nwire 0 (3 2)(2 2);\n;\n");
}

TEST(Script, RangeFlagBeyondTheLimitOnly) {
    const auto leaves_range = [](const cDIBSection& picture, std::int16_t unit, double size) {
        const TemporaryFolder folder;
        ExportOptions options;
        options.unit = unit;
        options.size = size;
        return Vectorize(picture.view(), folder / "s.scr", options).RangeOVL;
    };
    std::int16_t unit = 0;
    for (const double limit : {33026., 33.026, 838860., 838.86}) {
        EXPECT_FALSE(leaves_range(drawn({"#"}), unit, limit));
        EXPECT_TRUE(leaves_range(drawn({"#"}), unit++, limit * (1 + 1e-9)));
    }
    EXPECT_FALSE(leaves_range(drawn({"#.."}), 0, 33026)) << "the white columns are not written";
    EXPECT_FALSE(leaves_range(drawn({"#"}), 4, 1e6)) << "no unit, no limit";
}

} // namespace
} // namespace kelvane::test
