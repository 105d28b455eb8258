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
    return what == WidthOf::Lines ? whole_picture : std::min(kWideGap * limit, whole_picture);
}

// The thinnest one above the limit.
std::optional<Thinnest> wider_thinnest(const BitPicture& drawn, WidthOf what, double limit,
                                       ProgressObserver* observer) {
    const double widest = widest_limit(drawn, what, limit);
    std::optional<Thinnest> thinnest;
    for (double next = std::max(limit, 1.0); !thinnest && next < widest;) {
        next = std::min(2 * next, widest);
        thinnest = check_widths(drawn, what, next, observer).thinnest;
    }
    return thinnest;
}

double pixel_millimetres(const BoardQuestion& question) {
    return in_millimetres(question.options.size, question.options);
}

} // namespace

BoardReport board_sizes(const BitPicture& drawn, const BoardQuestion& question) {
    const double pixel_mm = pixel_millimetres(question);
    BoardReport report;
    report.picture_width_mm = drawn.width() * pixel_mm;
    report.picture_height_mm = drawn.height() * pixel_mm;
    report.ink = ink_of(drawn);
    report.ink_width_mm = report.ink.width * pixel_mm;
    report.ink_height_mm = report.ink.height * pixel_mm;
    return report;
}

BoardWidths board_widths(const BitPicture& drawn, WidthOf what, const BoardQuestion& question,
                         ProgressObserver* observer) {
    const double pixel_mm = pixel_millimetres(question);
    const double limit_mm =
        what == WidthOf::Lines ? question.limits.line_mm : question.limits.gap_mm;
    if (!(pixel_mm > 0) || !(limit_mm > 0) || ink_of(drawn).width == 0) return {};
    const double limit = limit_mm / pixel_mm;
    BoardWidths widths;
    widths.places = check_widths(drawn, what, limit, observer);
    std::optional<Thinnest> thinnest = widths.places.thinnest;
    if (!thinnest && question.measures) thinnest = wider_thinnest(drawn, what, limit, observer);
    if (thinnest) widths.thinnest_mm = thinnest->width * pixel_mm;
    return widths;
}

void add_warnings(BoardReport& report, const BoardQuestion& question) {
    const int layer = question.options.lay;
    const bool has_ink = report.ink.width > 0;
    const auto warn_if = [&](bool applies, BoardWarning warning) {
        if (applies) report.warnings.push_back(warning);
    };
    warn_if(question.options.size == 0, BoardWarning::NoPixelSize);
    warn_if(!has_ink, BoardWarning::NothingDark);
    warn_if(report.lines.places.places > 0, BoardWarning::ThinLines);
    warn_if(report.gaps.places.places > 0, BoardWarning::ThinGaps);
    warn_if(layer == kOutlineLayer, BoardWarning::OutlineLayer);
    warn_if(is_bottom_layer(layer) && !question.mirrored, BoardWarning::NotMirrored);
}

BoardReport check_board(ConstImageView reduced, const BoardQuestion& question) {
    const BitPicture drawn = drawn_pixels(reduced);
    BoardReport report = board_sizes(drawn, question);
    report.lines = board_widths(drawn, WidthOf::Lines, question);
    report.gaps = board_widths(drawn, WidthOf::Gaps, question);
    add_warnings(report, question);
    return report;
}

void add_objects(BoardReport& report, const ExportReport& counts) {
    report.objects = counts.shapes + counts.bridges;
    if (report.objects > kMostObjects) report.warnings.push_back(BoardWarning::ManyObjects);
}

} // namespace kelvane
