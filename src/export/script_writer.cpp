#include "export/script_writer.h"

#include <algorithm>
#include <charconv>

namespace kelvane {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kContinued = "\\\r\n";

// Text is gathered in a block; one point or short text fits behind its flushing mark.
constexpr std::size_t kFlushAt = std::size_t{1} << 20;
constexpr std::size_t kSlack = 256;

bool names_each_shape(const ExportOptions& options) {
    return options.lay <= kLastSignalLayer && options.optPoly != kShapeRectangle;
}

// The first words of a shape command. The spelling, lower-case "wire" included, is what existing
// scripts have.
std::string_view command_prefix(const ExportOptions& options) {
    if (options.optPoly == kShapeRectangle) return "Rect ";
    const bool wire = options.optPoly == kShapeWire;
    if (options.lay <= kLastSignalLayer) return wire ? "wire 'Image" : "Polygon 'Image";
    if (options.lay <= kLastNamedLayer) return wire ? "Wire 'Image' 0 " : "Polygon Image 0 ";
    return wire ? "Wire 0 " : "Polygon 0 ";
}

} // namespace

ScriptWriter::ScriptWriter(SafeFile& file, const ExportOptions& options, int width, int height)
    : file_(file), options_(options), name_each_shape_(names_each_shape(options)),
      prefix_(command_prefix(options)),
      x_text_(width, 0, options.size, unit_of(options).coordinate_limit, "(", " "),
      y_text_(height, 0, options.size, unit_of(options).coordinate_limit, "", ")"),
      lowered_y_text_(height, -.5, options.size, unit_of(options).coordinate_limit, "", ")"),
      block_(std::make_unique_for_overwrite<char[]>(kFlushAt + kSlack)), end_(block_.get()) {
    header();
}

void ScriptWriter::header() {
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

void ScriptWriter::polygon(const Outline& outline) {
    ++counts_.shapes;
    shape_prefix();
    point({outline[0].x, outline[0].y, false});
    // The point before the closing one is followed by it directly, the others by a line break.
    for (std::size_t i = 1; i < outline.size(); ++i) {
        text(kContinued);
        if (!outline[i].bridge) {
            point({outline[i].x, outline[i].y, false});
            continue;
        }
        const OutlineVertex& right = outline[i];
        const OutlineVertex& left = outline[++i];
        point({right.x, right.y, true});
        text(kContinued);
        point({left.x, left.y, true});
        strips_.push_back({left.x, right.x, right.y});
    }
    last_point({outline[0].x, outline[0].y, false});
}

void ScriptWriter::strip(const Strip& strip) {
    ++counts_.bridges;
    shape_prefix();
    if (options_.lay > kLastNamedLayer)
        text(kLineEnd); // only here, and only behind the plain command
    const Point first{strip.right, strip.y, true};
    point(first);
    for (const Point& next : {Point{strip.right, strip.y, false}, Point{strip.left, strip.y, false},
                              Point{strip.left, strip.y, true}}) {
        text(kContinued);
        point(next);
    }
    last_point(first);
}

void ScriptWriter::wires(const Outline& outline) {
    shape_prefix();
    for (std::size_t i = 0; i < outline.size(); ++i) {
        if (i > 0) text("wire 0 ");
        const OutlineVertex& to = outline[i + 1 < outline.size() ? i + 1 : 0];
        point({outline[i].x, outline[i].y, false});
        last_point({to.x, to.y, false});
    }
    line(";");
    counts_.shapes += outline.size();
}

void ScriptWriter::rectangle(const Run& run, int y) {
    ++counts_.shapes;
    shape_prefix();
    point({run.begin, y, false});
    last_point({run.end, y + 1, false});
}

void ScriptWriter::finish() {
    for (const Strip& left_out : strips_)
        strip(left_out);
    line("Grid last;");
    line("Window fit;");
    flush();
    file_.commit();
}

bool ScriptWriter::out_of_range() const {
    return x_text_.out_of_range() || y_text_.out_of_range() || lowered_y_text_.out_of_range();
}

void ScriptWriter::shape_prefix() {
    text(prefix_);
    if (!name_each_shape_) return;
    end_ = std::to_chars(end_, end_ + kSlack, next_name_++).ptr;
    text("' 0 ");
}

void ScriptWriter::point(Point point) {
    end_ = x_text_.append(point.x, end_);
    end_ = (point.lowered ? lowered_y_text_ : y_text_).append(point.y, end_);
    ++counts_.points;
    if (end_ - block_.get() >= static_cast<std::ptrdiff_t>(kFlushAt)) flush();
}

void ScriptWriter::last_point(Point last) {
    point(last);
    line(";");
}

void ScriptWriter::line(std::string_view bytes) {
    text(bytes);
    text(kLineEnd);
}

void ScriptWriter::text(std::string_view bytes) {
    end_ = std::copy(bytes.begin(), bytes.end(), end_);
}

void ScriptWriter::flush() {
    const std::string_view block(block_.get(), static_cast<std::size_t>(end_ - block_.get()));
    file_.write(block);
    counts_.bytes += block.size();
    end_ = block_.get();
}

} // namespace kelvane
