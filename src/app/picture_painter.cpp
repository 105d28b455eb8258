#include "app/picture_painter.h"

#include "view/scaled_part.h"

#include <algorithm>
#include <new>

namespace kelvane {

void PicturePainter::draw(HDC context, const cDIBSection& picture, const ViewGeometry& view) {
    if (picture.empty() || ViewSize{picture.Width(), picture.Height()} != view.picture()) return;
    const ViewPoint from = view.scroll();
    if (view.zoom() == ViewGeometry::kOneToOne) {
        picture.PaintPicture(context, -from.x, -from.y);
        return;
    }
    const ViewSize extent = view.extent();
    const ViewSize size{std::min(extent.width - from.x, view.window().width),
                        std::min(extent.height - from.y, view.window().height)};
    if (size.width <= 0 || size.height <= 0) return;
    const Part part{view.across(), view.down(), from, size};
    if (copied_ == part || copy(picture, part)) copy_.PaintPicture(context, 0, 0);
}

bool PicturePainter::copy(const cDIBSection& picture, const Part& part) {
    copied_.reset();
    if (copy_.Width() != part.size.width || copy_.Height() != part.size.height)
        if (!copy_.Create(part.size.width, part.size.height)) return false;
    try {
        GdiFlush(); // GDI may not have drawn the previous content yet
        draw_scaled_part(picture.view(), part.across, part.down, part.from.x, part.from.y,
                         copy_.view());
    } catch (const std::bad_alloc&) {
        return false;
    }
    copied_ = part;
    return true;
}

} // namespace kelvane
