// The text of an EAGLE script as it grows: what all kinds of shapes share.
#pragma once

#include "base/safe_file.h"
#include "export/coordinate_text.h"
#include "export/export_options.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace kelvane {

/// A point of the script: grid lines, pixels or parts of a pixel apart as the script is made, or
/// half a pixel below grid line `y` when lowered.
struct ScriptPoint {
    std::int32_t x;
    std::int32_t y;
    bool lowered = false;
};

/// Writes a script: the header on construction, then what the shapes ask for, then `finish`. Lines
/// end in CR LF; coordinates are grid lines times the pixel size. Throws `FileError`; the file
/// takes its place only in `finish`. Without a file the script is only counted.
class ScriptText {
  public:
    /// Between the points of a polygon, all but the last two.
    static constexpr std::string_view kContinued = "\\\r\n";
    static constexpr std::string_view kLineEnd = "\r\n";

    /// `width` and `height` are the picture's, in pixels; points are on a grid of `steps` lines per
    /// pixel: 1, or another power of 2. Then they may also be up to a pixel outside the picture.
    /// `file` may be null.
    ScriptText(SafeFile* file, const ExportOptions& options, int width, int height, int steps = 1);

    /// Short texts only, up to 100 characters.
    void append(std::string_view text);
    void line(std::string_view text);
    /// The first words of a shape command, with its name where the layer has names.
    void shape_prefix();
    void point(const ScriptPoint& point);
    /// The last point of a command.
    void last_point(const ScriptPoint& point);
    /// Writes the closing lines and puts the file in place.
    void finish();

    /// Only the plain polygon command of bridge strips is followed by a line break.
    bool breaks_strip_command() const { return options_.lay > kLastNamedLayer; }

    std::uint64_t points() const { return points_; }
    std::uint64_t bytes() const { return bytes_; }
    /// `RangeOVL`: a coordinate's magnitude was greater than the unit's limit.
    bool out_of_range() const;

  private:
    void header();
    void flush();

    SafeFile* const file_;
    const ExportOptions options_;
    const bool name_each_shape_;
    const std::string_view prefix_; // up to the name's number when shapes are named
    std::uint32_t next_name_ = 0;
    // Lowered points need half pixels.
    const int y_lines_per_step_;
    const int lowered_by_;
    CoordinateText x_text_;
    CoordinateText y_text_;
    std::uint64_t points_ = 0;
    std::uint64_t bytes_ = 0;

    std::unique_ptr<char[]> block_;
    char* end_; // of the text in the block
};

} // namespace kelvane
