#include "export/board_report.h"

#include "export/layers.h"
#include "export/length.h"

#include <algorithm>
#include <bit>

namespace kelvane {
namespace {

// Columns of the first and the last set pixel of a row.
struct Span {
    int first;
    int last;
};

std::optional<Span> span_of_row(const BitPicture& picture, int y) {
    const BitPicture::Word* const words = picture.row(y);
    int first = 0;
    int last = picture.row_words() - 1;
    while (first <= last && words[first] == 0)
        ++first;
    if (first > last) return std::nullopt;
    while (words[last] == 0)
        --last;
    return Span{first * BitPicture::kWordPixels + std::countr_zero(words[first]),
                (last + 1) * BitPicture::kWordPixels - 1 - std::countl_zero(words[last])};
}

InkBox ink_of(const BitPicture& drawn) {
    int left = drawn.width(), right = -1;
    int bottom = -1, top = -1;
    for (int y = 0; y < drawn.height(); ++y) {
        const auto span = span_of_row(drawn, y);
        if (!span) continue;
        left = std::min(left, span->first);
        right = std::max(right, span->last);
        if (bottom < 0) bottom = y;
        top = y;
    }
    if (bottom < 0) return {};
    return {left, bottom, right - left + 1, top - bottom + 1};
}

// The widest limit, in pixels, at which the thinnest line or gap is searched.
double widest_limit(const BitPicture& drawn, WidthOf what, double limit) {
    constexpr double kWideGap = 8;
    // At this one whatever is drawn is thinner.
    const double whole_picture = 2.0 * std::min(drawn.width(), drawn.height()) + 1;
    return what == WidthOf::kLines ? whole_picture : std::min(kWideGap * limit, whole_picture);
}

BoardWidths widths_of(const BitPicture& drawn, WidthOf what, double limit, double pixel_mm,
                      bool measures) {
    BoardWidths widths;
    widths.places = check_widths(drawn, what, limit);
    std::optional<Thinnest> thinnest = widths.places.thinnest;
    if (measures) {
        const double widest = widest_limit(drawn, what, limit);
        for (double next = std::max(limit, 1.0); !thinnest && next < widest;) {
            next = std::min(2 * next, widest);
            thinnest = check_widths(drawn, what, next).thinnest;
        }
    }
    if (thinnest) widths.thinnest_mm = thinnest->width * pixel_mm;
    return widths;
}

void add_widths(const BitPicture& drawn, double pixel_mm, const BoardQuestion& question,
                BoardReport& report) {
    const auto check = [&](WidthOf what, double limit_mm, BoardWidths& widths) {
        if (limit_mm > 0)
            widths = widths_of(drawn, what, limit_mm / pixel_mm, pixel_mm, question.measures);
    };
    check(WidthOf::kLines, question.limits.line_mm, report.lines);
    check(WidthOf::kGaps, question.limits.gap_mm, report.gaps);
}

void add_warnings(const BoardQuestion& question, BoardReport& report) {
    const int layer = question.options.lay;
    const bool has_ink = report.ink.width > 0;
    const auto warn_if = [&](bool applies, BoardWarning warning) {
        if (applies) report.warnings.push_back(warning);
    };
    warn_if(question.options.size == 0, BoardWarning::kNoPixelSize);
    warn_if(!has_ink, BoardWarning::kNothingDark);
    warn_if(report.lines.places.places > 0, BoardWarning::kThinLines);
    warn_if(report.gaps.places.places > 0, BoardWarning::kThinGaps);
    warn_if(layer == kOutlineLayer, BoardWarning::kOutlineLayer);
    warn_if(is_bottom_layer(layer) && !question.mirrored, BoardWarning::kNotMirrored);
}

} // namespace

BoardReport check_board(ConstImageView reduced, const BoardQuestion& question) {
    const double pixel_mm = in_millimetres(question.options.size, question.options);
    const BitPicture drawn = drawn_pixels(reduced);
    BoardReport report;
    report.picture_width_mm = reduced.width * pixel_mm;
    report.picture_height_mm = reduced.height * pixel_mm;
    report.ink = ink_of(drawn);
    report.ink_width_mm = report.ink.width * pixel_mm;
    report.ink_height_mm = report.ink.height * pixel_mm;
    if (pixel_mm > 0 && report.ink.width > 0) add_widths(drawn, pixel_mm, question, report);
    add_warnings(question, report);
    return report;
}

void add_objects(BoardReport& report, const ExportReport& counts) {
    report.objects = counts.shapes + counts.bridges;
    if (report.objects > kMostObjects) report.warnings.push_back(BoardWarning::kManyObjects);
}

} // namespace kelvane
