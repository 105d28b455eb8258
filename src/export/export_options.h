// What one export to an EAGLE script is asked to do, with the tables behind the choices.
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <string_view>

namespace kelvane {

/// Kinds of shapes in the script; the values are those of the export dialog and its settings.
enum ShapeKind : std::int16_t { kShapePolygon = 0, kShapeWire = 1, kShapeRectangle = 2 };
/// Their names, by value.
inline constexpr std::array<std::string_view, 3> kShapeNames{"polygon", "wire", "rectangle"};

/// The grey up to which an export takes a pixel for dark: the limit of its reduction to black and
/// white.
inline constexpr int kExportLimit = 128;

/// The export dialog's answer and the command line's.
struct ExportOptions {
    /// True: runs are merged into outlines; false: each run is a shape of its own.
    bool exp = true;
    /// A `ShapeKind`; rectangles only with linewise tracing.
    std::int16_t optPoly = kShapePolygon;
    /// EAGLE layer, 1 to 255.
    std::int16_t lay = 20;
    /// Edge length of one pixel in the unit.
    double size = 1;
    /// Index into `kUnits`.
    std::int16_t unit = 0;
    /// Index into `kEagleVersions`.
    std::int16_t ver = 0;
    /// How far smooth outlines may be from the exact ones, in pixels in the maximum norm: a value
    /// between the two below, or 0 for exact stairs. Only for polygons and wires with `exp`. Below
    /// 0.25 nothing can be smoothed: the corners of any stairs are as far from a line.
    double smooth = 0;

    bool operator==(const ExportOptions&) const = default;
};
inline constexpr double kLeastSmoothing = .05;
inline constexpr double kMostSmoothing = .5;

/// A unit of length and the magnitude beyond which a coordinate leaves EAGLE's range. The limits
/// are one length, told in each unit.
struct Unit {
    std::string_view name; // as in the script's Grid command
    std::string_view word; // in running text and on the command line
    double coordinate_limit;
    double nanometres; // a whole number for every unit, so that lengths convert exactly
};
inline constexpr std::array<Unit, 4> kUnits{{
    {"mil", "mil", 33026.0, 25400},
    {"Inch", "inch", 33.026, 25400000},
    {"mic", "mic", 838860.0, 1000},
    {"mm", "mm", 838.86, 1000000},
}};

/// An EAGLE version and the setting that makes its wires bend freely.
struct EagleVersion {
    std::string_view name;
    std::string_view number; // the first version it stands for
    std::string_view bend_command;
};
inline constexpr std::array<EagleVersion, 3> kEagleVersions{{
    {"4.xx/5.xx", "4", "Set wire_bend 2;"},
    {"3.xx", "3", "Set wire_style 2;"},
    {"2.xx", "2", "Set wire_style 2;"},
}};

/// The options' unit; an index outside the table has no name and no limit.
constexpr Unit unit_of(const ExportOptions& options) {
    if (options.unit < 0 || options.unit >= static_cast<int>(kUnits.size()))
        return {"", "", std::numeric_limits<double>::infinity(), 0};
    return kUnits[static_cast<std::size_t>(options.unit)];
}
/// The version's bend command; every index but 0 stands for the older spelling.
constexpr std::string_view bend_command(const ExportOptions& options) {
    return kEagleVersions[options.ver == 0 ? 0 : 1].bend_command;
}

inline constexpr int kLayerCount = 255;
/// Layers 1 to 16 carry signals: each shape becomes a signal with a name of its own.
inline constexpr int kLastSignalLayer = 16;
/// Layers 17 and 18 (pads, vias) take one common name.
inline constexpr int kLastNamedLayer = 18;

} // namespace kelvane
