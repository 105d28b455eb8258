#include "dialogs/live_preview.h"

#include "dialogs/preview_size.h"
#include "view/scaled_part.h"
#include "win/picture_box.h"

#include <algorithm>

namespace kelvane {
namespace {

// Averaged when it becomes smaller, else interpolated.
cDIBSection at_size(const cDIBSection& picture, PreviewSize size) {
    if (size.width > picture.Width() || size.height > picture.Height())
        return picture.Resample(size.height, size.width);
    cDIBSection result;
    if (result.Create(size.width, size.height)) draw_scaled(picture.view(), result.view());
    return result;
}

// Small pictures are not enlarged: operations on single pixels have to show the picture's own.
cDIBSection reduced(const cDIBSection& picture) {
    if (std::max(picture.Width(), picture.Height()) <= kPreviewEdge) return picture.Copy();
    return at_size(picture, preview_size(picture.Width(), picture.Height()));
}

} // namespace

LivePreview::LivePreview(const cDIBSection& picture) : unchanged_(reduced(picture)) {}

cDIBSection LivePreview::at_same_size(const cDIBSection& other) const {
    return at_size(other, {unchanged_.Width(), unchanged_.Height()});
}

void LivePreview::fit(HWND box) const {
    PreviewSize size{kPreviewEdge, kPreviewEdge};
    if (!unchanged_.empty()) size = preview_size(unchanged_.Width(), unchanged_.Height());
    win::fit_picture_box(box, size.width, size.height);
}

void LivePreview::show(HWND box, const std::function<void(cDIBSection&)>& operation) {
    shown_ = unchanged_.Copy();
    operation(shown_);
    InvalidateRect(box, nullptr, FALSE);
    UpdateWindow(box); // WM_PAINT would wait while the slider is dragged
}

void LivePreview::draw(const DRAWITEMSTRUCT& box) const {
    const int longest = std::max({shown_.Width(), shown_.Height(), 1});
    win::draw_picture_box(box, shown_, win::picture_zoom(box.hwndItem) * kPreviewEdge / longest);
}

} // namespace kelvane
