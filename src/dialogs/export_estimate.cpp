#include "dialogs/export_estimate.h"

#include "dialogs/preview_size.h"
#include "engine/image_process.h"
#include "export/length.h"

#include <utility>

namespace kelvane {
namespace {

bool same_outlines(const ExportOptions& a, const ExportOptions& b) {
    return a.exp == b.exp && a.optPoly == b.optPoly && a.smooth == b.smooth;
}

bool same_pixel_size(const ExportOptions& a, const ExportOptions& b) {
    return in_millimetres(a.size, a) == in_millimetres(b.size, b);
}

} // namespace

ExportEstimate::ExportEstimate(const cDIBSection& picture) : traced_(picture.Copy()) {
    if (!cImageProcessDIB().BlackAndWhite2(traced_, traced_, kExportLimit)) traced_.ClearUp();
    drawn_ = drawn_pixels(traced_.view());
}

void ExportEstimate::ask(const BoardQuestion& question) {
    forget_changed(std::exchange(question_, question));
    if (question.mirrored != mirrored_) turn();
    if (question.options.smooth == 0) outlines_known_ = true; // there are none
    report_anew();
}

void ExportEstimate::forget_changed(const BoardQuestion& before) {
    const ExportOptions& now = question_.options;
    if (!same_outlines(now, before.options)) {
        outlines_.ClearUp();
        outlines_known_ = false;
    }
    if (!same_pixel_size(now, before.options)) {
        lines_.reset();
        gaps_.reset();
    }
    if (now != before.options) counts_.reset();
}

void ExportEstimate::turn() {
    cImageProcessDIB().Mirror(traced_);
    drawn_ = drawn_pixels(traced_.view());
    mirrored_ = question_.mirrored;
    outlines_.ClearUp();
    outlines_known_ = false;
    lines_.reset();
    gaps_.reset();
    counts_.reset();
}

void ExportEstimate::work(ProgressObserver* observer) {
    if (!outlines_known_)
        draw_outlines(observer);
    else if (!lines_)
        lines_ = board_widths(drawn_, WidthOf::Lines, question_, observer);
    else if (!gaps_)
        gaps_ = board_widths(drawn_, WidthOf::Gaps, question_, observer);
    else if (!counts_)
        counts_ = CountExport(traced_.view(), question_.options, observer);
    report_anew();
}

void ExportEstimate::draw_outlines(ProgressObserver* observer) {
    if (!traced_.empty()) {
        const PreviewSize size = preview_size(traced_.Width(), traced_.Height());
        cDIBSection outlines;
        if (outlines.Create(size.width, size.height))
            DrawExport(traced_.view(), question_.options, outlines.view(), observer);
        outlines_ = std::move(outlines);
    }
    outlines_known_ = true;
}

void ExportEstimate::report_anew() {
    report_ = board_sizes(drawn_, question_);
    if (lines_) report_.lines = *lines_;
    if (gaps_) report_.gaps = *gaps_;
    add_warnings(report_, question_);
    if (counts_) add_objects(report_, *counts_);
}

} // namespace kelvane
