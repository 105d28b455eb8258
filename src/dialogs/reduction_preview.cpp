#include "dialogs/reduction_preview.h"

#include "image/resample.h"
#include "view/scaled_part.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace kelvane {
namespace {

constexpr int kPixelsAtOnce = 2'000'000; // of a whole picture

// Rows of the picture that are reduced for one row of the overview.
constexpr int kRowsPerRow = 2;

void shrink(ConstImageView from, ImageView to) {
    if (from.width >= to.width && from.height >= to.height)
        draw_scaled(from, to);
    else
        resample_bilinear(from, to);
}

// Replaces darkness by its square root: edges are lines of one pixel, which shrunk are too pale.
// Where they are white on black, the same with lightness.
void strengthen_lines(ImageView view, bool white) {
    const int paper = white ? 0 : 255;
    for (int y = 0; y < view.height; ++y)
        for (std::uint8_t* byte = view.row(y); byte < view.row(y) + 3 * view.width; ++byte) {
            const auto ink = std::lround(std::sqrt(std::abs(paper - *byte) * 255.0));
            *byte = static_cast<std::uint8_t>(std::abs(paper - ink));
        }
}

void copy_area(const cDIBSection& from, int left, int bottom, cDIBSection& to, int to_left,
               int to_bottom, int width, int height) {
    for (int y = 0; y < height; ++y)
        std::memcpy(to.view().pixel(to_left, to_bottom + y), from.view().pixel(left, bottom + y),
                    static_cast<std::size_t>(width) * 3);
}

} // namespace

ReductionPreview::ReductionPreview(const cDIBSection& picture, int edge)
    : picture_(picture), size_(preview_size(picture.Width(), picture.Height(), edge)) {
    area_.width = std::min(edge, picture.Width());
    area_.height = std::min(edge, picture.Height());
    area_.left = (picture.Width() - area_.width) / 2;
    area_.top = (picture.Height() - area_.height) / 2;
    take_rows();
}

void ReductionPreview::take_rows() {
    const int step = std::max(1, picture_.Height() / (kRowsPerRow * size_.height));
    const int count = picture_.Height() / step;
    spare_rows_ = step > 1 ? 1 : 0;
    if (picture_.empty() || !rows_.Create(picture_.Width(), count + spare_rows_) ||
        !work_.Create(rows_.Width(), rows_.Height()) ||
        !overview_.Create(size_.width, size_.height))
        return;
    for (int row = 0; row < rows_.Height(); ++row)
        std::memcpy(rows_.view().row(row),
                    picture_.view().row(std::max(0, row - spare_rows_) * step),
                    static_cast<std::size_t>(picture_.Width()) * 3);
}

void ReductionPreview::update(const Reduction& reduction, ProgressObserver* observer) {
    if (overview_.empty()) return;
    if (reduction.looks_around() && !reduce_whole(reduction, observer)) return;
    update_overview(reduction);
    update_detail(reduction);
}

bool ReductionPreview::takes_long(const Reduction& reduction) const {
    return reduction.looks_around() && whole_reduction_ != reduction &&
           std::int64_t{picture_.Width()} * picture_.Height() > kPixelsAtOnce;
}

// False when there is no memory for it.
bool ReductionPreview::reduce_whole(const Reduction& reduction, ProgressObserver* observer) {
    if (whole_reduction_ == reduction) return true;
    if (whole_.empty() && !whole_.Create(picture_.Width(), picture_.Height())) return false;
    whole_reduction_.reset();
    copy_pixels(picture_.view(), whole_.view());
    cImageProcessDIB engine;
    engine.set_observer(observer);
    engine.Reduce(whole_, reduction);
    whole_reduction_ = reduction;
    return true;
}

void ReductionPreview::update_overview(const Reduction& reduction) {
    if (reduction.looks_around()) return shrink_to_overview(whole_.view(), reduction);
    copy_pixels(rows_.view(), work_.view());
    cImageProcessDIB().Reduce(work_, reduction);
    ConstImageView reduced = work_.view();
    reduced.bits += reduced.row_step * spare_rows_;
    reduced.height -= spare_rows_;
    shrink_to_overview(reduced, reduction);
}

void ReductionPreview::shrink_to_overview(ConstImageView reduced, const Reduction& reduction) {
    shrink(reduced, overview_.view());
    if (reduction.kind == ReductionKind::Edges)
        strengthen_lines(overview_.view(), reduction.inverted);
}

// The reduction to edges leaves the first column and the bottom row of its input unreduced, so one
// more column on the left and one more row below are included.
void ReductionPreview::update_detail(const Reduction& reduction) {
    const int bottom = picture_.Height() - area_.top - area_.height;
    if (detail_.empty() && !detail_.Create(area_.width, area_.height)) return;
    if (reduction.looks_around())
        return copy_area(whole_, area_.left, bottom, detail_, 0, 0, area_.width, area_.height);
    const int more_left = std::min(1, area_.left);
    const int more_below = std::min(1, bottom);
    cDIBSection cut;
    if (!cut.Create(area_.width + more_left, area_.height + more_below)) return;
    copy_area(picture_, area_.left - more_left, bottom - more_below, cut, 0, 0, cut.Width(),
              cut.Height());
    cImageProcessDIB().Reduce(cut, reduction);
    copy_area(cut, more_left, more_below, detail_, 0, 0, area_.width, area_.height);
}

bool ReductionPreview::place_detail(int left, int top) {
    const int old_left = area_.left;
    const int old_top = area_.top;
    area_.left = std::clamp(left, 0, picture_.Width() - area_.width);
    area_.top = std::clamp(top, 0, picture_.Height() - area_.height);
    return area_.left != old_left || area_.top != old_top;
}

bool ReductionPreview::centre_detail_at(int x, int y) {
    const auto start = [](int at, int shown, int size, int part) {
        return static_cast<int>(static_cast<double>(at) * size / shown) - part / 2;
    };
    return place_detail(start(x, size_.width, picture_.Width(), area_.width),
                        start(y, size_.height, picture_.Height(), area_.height));
}

bool ReductionPreview::move_detail(int right, int down) {
    const auto step = [](int size) { return std::max(size / 8, 1); };
    return place_detail(area_.left + right * step(area_.width),
                        area_.top + down * step(area_.height));
}

bool ReductionPreview::detail_shows_all() const {
    return area_.width >= picture_.Width() && area_.height >= picture_.Height();
}

PixelArea ReductionPreview::detail_in_overview() const {
    const auto scaled = [](int length, int shown, int size) {
        return static_cast<int>(static_cast<double>(length) * shown / std::max(1, size));
    };
    return {scaled(area_.left, size_.width, picture_.Width()),
            scaled(area_.top, size_.height, picture_.Height()),
            std::max(1, scaled(area_.width, size_.width, picture_.Width())),
            std::max(1, scaled(area_.height, size_.height, picture_.Height()))};
}

} // namespace kelvane
