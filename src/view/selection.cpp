#include "view/selection.h"

#include <algorithm>
#include <cstdlib>

namespace kelvane {

std::optional<PixelRect> Selection::rect() const {
    if (!exists_) return std::nullopt;
    return PixelRect{std::min(anchor_.x, corner_.x), std::min(anchor_.y, corner_.y),
                     std::abs(anchor_.x - corner_.x) + 1, std::abs(anchor_.y - corner_.y) + 1};
}

void Selection::span(ViewPoint anchor, ViewPoint corner) {
    exists_ = true;
    anchor_ = anchor;
    corner_ = corner;
}

void Selection::move_corner(int right, int down, ViewSize picture) {
    corner_ = {std::clamp(corner_.x + right, 0, picture.width - 1),
               std::clamp(corner_.y + down, 0, picture.height - 1)};
}

void Selection::move(int right, int down, ViewSize picture) {
    if (!exists_) return;
    const PixelRect now = *rect();
    const int x = std::clamp(right, -now.left, picture.width - now.left - now.width);
    const int y = std::clamp(down, -now.top, picture.height - now.top - now.height);
    anchor_ = {anchor_.x + x, anchor_.y + y};
    corner_ = {corner_.x + x, corner_.y + y};
}

} // namespace kelvane
