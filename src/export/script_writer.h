// Last stage of an export: the text of the EAGLE script.
#pragma once

#include "export/coordinate_text.h"
#include "export/export_options.h"
#include "export/outlines.h"
#include "image/safe_file.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kelvane {

/// What a script holds.
struct ScriptCounts {
    std::uint64_t shapes = 0; // polygons without bridge strips, single wires, or rectangles
    std::uint64_t points = 0;
    std::uint64_t bridges = 0;
    std::uint64_t bytes = 0;
};

/// Writes one script: the header on construction, then shapes of the kind the options name, then
/// `finish`. Lines end in CR LF; coordinates are grid lines times the pixel size. Throws
/// `FileError`; the file takes its place only in `finish`.
class ScriptWriter {
  public:
    /// `width` and `height` are the picture's, in pixels.
    ScriptWriter(SafeFile& file, const ExportOptions& options, int width, int height);

    /// A polygon. Edges with the bridge mark are lowered by half a pixel and the strips left out
    /// are remembered for `finish`.
    void polygon(const Outline& outline);
    /// The wires around an outline. Bridge marks are not heeded.
    void wires(const Outline& outline);
    /// A rectangle over one run of row `y`.
    void rectangle(const Run& run, int y);
    /// Writes the strips that bridges left out, the closing lines, and puts the file in place.
    void finish();

    const ScriptCounts& counts() const { return counts_; }
    /// `RangeOVL`: a coordinate's magnitude was greater than the unit's limit.
    bool out_of_range() const;

  private:
    /// A point of the script; lowered ones lie half a pixel below grid line `y`.
    struct Point {
        std::int32_t x;
        std::int32_t y;
        bool lowered;
    };
    /// The half-pixel strip under grid line `y` between two columns.
    struct Strip {
        std::int32_t left;
        std::int32_t right;
        std::int32_t y;
    };

    void header();
    void text(std::string_view bytes);
    void line(std::string_view bytes);
    void shape_prefix();
    void point(Point point);
    void last_point(Point point);
    void strip(const Strip& strip);
    void flush();

    SafeFile& file_;
    const ExportOptions options_;
    const bool name_each_shape_;
    std::string prefix_; // of a shape command, up to the name's number when shapes are named
    std::uint32_t next_name_ = 0;
    CoordinateText x_text_;
    CoordinateText y_text_;
    CoordinateText lowered_y_text_;
    std::vector<Strip> strips_;
    ScriptCounts counts_;

    std::unique_ptr<char[]> block_;
    char* end_; // of the text in the block
};

} // namespace kelvane
