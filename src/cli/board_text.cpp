#include "cli/board_text.h"

#include "export/layers.h"
#include "export/length.h"
#include "export/length_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <iterator>

namespace kelvane {
namespace {

std::string unit_name(const ExportOptions& options) {
    return std::string(unit_word(options));
}

std::string width(double millimetres, const ExportOptions& options) {
    return width_text(millimetres, options) + ' ' + unit_name(options);
}

std::string area(double width_mm, double height_mm, const ExportOptions& options) {
    return length_text(width_mm, options) + " x " + length_text(height_mm, options) + ' ' +
           unit_name(options);
}

std::string many(std::uint64_t count, const std::string& noun) {
    return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}

std::string shape_name(const ExportOptions& options) {
    return std::string(kShapeNames[static_cast<std::size_t>(options.optPoly)]);
}

// "lines thinner than 0.150 mm in 12 places, the thinnest 0.090 mm at (3.25 4.10)"
std::string thin_text(const std::string& what, const BoardWidths& widths, double limit_mm,
                      const ExportOptions& options, const char* option) {
    const Thinnest& thinnest = *widths.places.thinnest;
    const double pixel_mm = in_millimetres(options.size, options);
    constexpr double kMiddle = .5; // of the pixel
    return what + "s thinner than " + width(limit_mm, options) + " in " +
           many(widths.places.places, "place") + ", the thinnest " +
           width(*widths.thinnest_mm, options) + " at (" +
           length_text((thinnest.x + kMiddle) * pixel_mm, options) + ' ' +
           length_text((thinnest.y + kMiddle) * pixel_mm, options) + "); " + option +
           " sets what the board maker can print";
}

std::string layer_text(const ExportOptions& options) {
    const std::string_view name = layer_name(options.lay);
    return "layer " + std::to_string(options.lay) + " (" + std::string(name) + ")";
}

// With the 15 digits that scripts have; unlike theirs, numbers of JSON have a digit before the
// point.
std::string json_number(double value) {
    constexpr int kDigits = 15;
    char text[40];
    char* const end =
        std::to_chars(text, std::end(text), value, std::chars_format::general, kDigits).ptr;
    return {text, end};
}

std::string json_number(const std::optional<double>& value) {
    return value ? json_number(*value) : "null";
}

} // namespace

std::string warning_text(BoardWarning warning, const BoardReport& report,
                         const BoardQuestion& question) {
    const ExportOptions& options = question.options;
    switch (warning) {
    case BoardWarning::NoPixelSize:
        return "a pixel has the size 0, so that everything lies in one point";
    case BoardWarning::NothingDark:
        return "nothing is dark enough to be drawn; --op bw:auto finds a limit of its own";
    case BoardWarning::ThinLines:
        return thin_text("line", report.lines, question.limits.line_mm, options, "--min-line");
    case BoardWarning::ThinGaps:
        return thin_text("gap", report.gaps, question.limits.gap_mm, options, "--min-gap");
    case BoardWarning::OutlineLayer:
        return layer_text(options) +
               " is the outline of the board; the silk screen is --layer tPlace";
    case BoardWarning::NotMirrored:
        return layer_text(options) + " is seen from below, where the drawing is read reversed; "
                                     "--mirror puts that right";
    case BoardWarning::ManyObjects:
        break;
    }
    return many(report.objects, shape_name(options)) + " are more than EAGLE draws quickly (" +
           std::to_string(kMostObjects) +
           "); --op despeckle:N drops specks, --op resample:WIDTHxHEIGHT makes the picture smaller";
}

std::string summary_text(const BoardReport& report, const ExportReport& counts,
                         const BoardQuestion& question) {
    const ExportOptions& options = question.options;
    std::string text =
        "picture " + area(report.picture_width_mm, report.picture_height_mm, options) + "; ";
    text += report.ink.width == 0
                ? "no ink"
                : "ink " + area(report.ink_width_mm, report.ink_height_mm, options);
    text += "; " + many(report.objects, shape_name(options)) + ", " + byte_text(counts.bytes);
    if (report.lines.thinnest_mm)
        text += "; thinnest line " + width(*report.lines.thinnest_mm, options);
    return text;
}

std::string board_json(const BoardReport& report, const BoardQuestion& question) {
    const auto pair = [](double a, double b) {
        return '[' + json_number(a) + ", " + json_number(b) + ']';
    };
    const InkBox& ink = report.ink;
    std::string warnings;
    for (const BoardWarning warning : report.warnings)
        warnings +=
            (warnings.empty() ? "\"" : ", \"") + warning_text(warning, report, question) + '"';
    return "\"unit\": \"" + unit_name(question.options) +
           "\", \"pixel_size\": " + json_number(question.options.size) +
           ", \"picture_mm\": " + pair(report.picture_width_mm, report.picture_height_mm) +
           ", \"ink_mm\": " + pair(report.ink_width_mm, report.ink_height_mm) + ", \"ink\": [" +
           std::to_string(ink.x) + ", " + std::to_string(ink.y) + ", " + std::to_string(ink.width) +
           ", " + std::to_string(ink.height) +
           "], \"thinnest_line_mm\": " + json_number(report.lines.thinnest_mm) +
           ", \"thinnest_gap_mm\": " + json_number(report.gaps.thinnest_mm) +
           ", \"thin_lines\": " + std::to_string(report.lines.places.places) +
           ", \"thin_gaps\": " + std::to_string(report.gaps.places.places) + ", \"warnings\": [" +
           warnings + ']';
}

} // namespace kelvane
