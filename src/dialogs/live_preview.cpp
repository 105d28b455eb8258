#include "dialogs/live_preview.h"

#include "dialogs/preview_size.h"
#include "win/picture_box.h"

#include <algorithm>

namespace kelvane {
namespace {

cDIBSection reduced(const cDIBSection& picture) {
    if (std::max(picture.Width(), picture.Height()) <= kPreviewEdge) return picture.Copy();
    const PreviewSize size = preview_size(picture.Width(), picture.Height());
    return picture.Resample(size.height, size.width);
}

} // namespace

LivePreview::LivePreview(const cDIBSection& picture) : unchanged_(reduced(picture)) {}

void LivePreview::show(HWND box, const std::function<void(cDIBSection&)>& operation) {
    shown_ = unchanged_.Copy();
    operation(shown_);
    InvalidateRect(box, nullptr, FALSE);
    UpdateWindow(box); // a slider that is dragged leaves no time for painting
}

void LivePreview::draw(const DRAWITEMSTRUCT& box) const {
    const int longest = std::max({shown_.Width(), shown_.Height(), 1});
    win::draw_picture_box(box, shown_, win::picture_zoom(box.hwndItem) * kPreviewEdge / longest);
}

} // namespace kelvane
