#include "export/script_text.h"

#include <algorithm>
#include <charconv>

namespace kelvane {
namespace {

// Text is gathered in a block; a point with all that may stand around it fits behind its mark.
constexpr std::size_t kFlushAt = std::size_t{1} << 20;
constexpr std::size_t kSlack = 512;

bool names_each_shape(const ExportOptions& options) {
    return options.lay <= kLastSignalLayer && options.optPoly != kShapeRectangle;
}

// The spelling, lower-case "wire" included, is what existing scripts have.
std::string_view command_prefix(const ExportOptions& options) {
    if (options.optPoly == kShapeRectangle) return "Rect ";
    const bool wire = options.optPoly == kShapeWire;
    if (options.lay <= kLastSignalLayer) return wire ? "wire 'Image" : "Polygon 'Image";
    if (options.lay <= kLastNamedLayer) return wire ? "Wire 'Image' 0 " : "Polygon Image 0 ";
    return wire ? "Wire 0 " : "Polygon 0 ";
}

// Along a side of `pixels`.
CoordinateText coordinate_text(const ExportOptions& options, int pixels, int steps, int lines,
                               const char* prefix, const char* suffix) {
    const int outside = steps == 1 ? 0 : lines;
    return {-outside,     pixels * lines + outside,          lines,
            options.size, unit_of(options).coordinate_limit, prefix,
            suffix};
}

} // namespace

ScriptText::ScriptText(SafeFile* file, const ExportOptions& options, int width, int height,
                       int steps)
    : file_(file), options_(options), name_each_shape_(names_each_shape(options)),
      prefix_(command_prefix(options)), y_lines_per_step_(steps == 1 ? 2 : 1),
      lowered_by_(steps * y_lines_per_step_ / 2),
      x_text_(coordinate_text(options, width, steps, steps, "(", " ")),
      y_text_(coordinate_text(options, height, steps, steps * y_lines_per_step_, "", ")")),
      block_(std::make_unique_for_overwrite<char[]>(kFlushAt + kSlack)), end_(block_.get()) {
    header();
}

void ScriptText::header() {
    line("Grid " + std::string(unit_of(options_).name) + ";");
    // Two blanks before the number and one behind it: the place of its sign, and what follows any
    // number in this line.
    line("Change Layer  " + std::to_string(options_.lay) + " ;");
    if (options_.optPoly == kShapePolygon) {
        line("Change Pour Solid;");
        line("Change Thermals off;");
        line("Change Isolate 0;");
    }
    line(bend_command(options_));
}

void ScriptText::append(std::string_view text) {
    end_ = std::copy(text.begin(), text.end(), end_);
}

void ScriptText::line(std::string_view text) {
    append(text);
    append(kLineEnd);
}

void ScriptText::shape_prefix() {
    append(prefix_);
    if (!name_each_shape_) return;
    end_ = std::to_chars(end_, end_ + kSlack, next_name_++).ptr;
    append("' 0 ");
}

void ScriptText::point(const ScriptPoint& point) {
    end_ = x_text_.append(point.x, end_);
    end_ = y_text_.append(point.y * y_lines_per_step_ - (point.lowered ? lowered_by_ : 0), end_);
    ++points_;
    if (end_ - block_.get() >= static_cast<std::ptrdiff_t>(kFlushAt)) flush();
}

void ScriptText::last_point(const ScriptPoint& last) {
    point(last);
    line(";");
}

void ScriptText::finish() {
    line("Grid last;");
    line("Window fit;");
    flush();
    if (file_) file_->commit();
}

bool ScriptText::out_of_range() const {
    return x_text_.out_of_range() || y_text_.out_of_range();
}

void ScriptText::flush() {
    const std::string_view block(block_.get(), static_cast<std::size_t>(end_ - block_.get()));
    if (file_) file_->write(block);
    bytes_ += block.size();
    end_ = block_.get();
}

} // namespace kelvane
