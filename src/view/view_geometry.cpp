#include "view/view_geometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace kelvane {
namespace {

constexpr std::array<int, 21> kSteps{500,   700,   1000,  1500,   2000,   2500,   3333,
                                     5000,  6667,  8000,  10000,  15000,  20000,  30000,
                                     40000, 60000, 80000, 120000, 160000, 240000, 320000};

// The scroll position at which the picture's point under `fixed` stays there.
int scroll_for(int scroll, int fixed, AxisScale before, AxisScale after) {
    const double middle = (scroll + fixed + 0.5) * after.extent / before.extent;
    return static_cast<int>(std::floor(middle - fixed));
}

std::int64_t zoom_to_fill(int size, int room) {
    return std::int64_t{room} * ViewGeometry::kOneToOne / size;
}

int shown(int position, int from, int to, int window) {
    if (from < position || to - from > window) return from;
    return std::max(position, to - window);
}

} // namespace

AxisScale ViewGeometry::scale(int size, int zoom) {
    const std::int64_t extent = (std::int64_t{size} * zoom + kOneToOne / 2) / kOneToOne;
    return {std::max(size, 1), static_cast<int>(std::max<std::int64_t>(extent, 1))};
}

int ViewGeometry::limited(int zoom) const {
    const int side = std::max({picture_.width, picture_.height, 1});
    const std::int64_t most =
        std::max<std::int64_t>(zoom_to_fill(side, kLongestExtent), kSmallestZoom);
    return std::min(std::clamp(zoom, kSmallestZoom, kLargestZoom),
                    static_cast<int>(std::min<std::int64_t>(most, kLargestZoom)));
}

void ViewGeometry::set_picture(ViewSize size) {
    picture_ = size;
    zoom_ = limited(zoom_);
    scroll_to(scroll_);
}

void ViewGeometry::set_window(ViewSize size) {
    window_ = size;
    scroll_to(scroll_);
}

void ViewGeometry::zoom_to(int zoom, ViewPoint fixed) {
    const AxisScale old_across = across();
    const AxisScale old_down = down();
    zoom_ = limited(zoom);
    scroll_to({scroll_for(scroll_.x, fixed.x, old_across, across()),
               scroll_for(scroll_.y, fixed.y, old_down, down())});
}

int ViewGeometry::larger_zoom() const {
    const auto step = std::ranges::upper_bound(kSteps, zoom_);
    return limited(step == kSteps.end() ? kLargestZoom : *step);
}

int ViewGeometry::smaller_zoom() const {
    const auto step = std::ranges::lower_bound(kSteps, zoom_);
    return limited(step == kSteps.begin() ? kSmallestZoom : *(step - 1));
}

int ViewGeometry::fitting_zoom(ViewSize window) const {
    const std::int64_t zoom = std::min(zoom_to_fill(std::max(picture_.width, 1), window.width),
                                       zoom_to_fill(std::max(picture_.height, 1), window.height));
    return limited(static_cast<int>(std::min<std::int64_t>(zoom, kLargestZoom)));
}

ViewSize ViewGeometry::extent() const {
    if (picture_.width == 0 || picture_.height == 0) return {};
    return {across().extent, down().extent};
}

void ViewGeometry::scroll_to(ViewPoint position) {
    const ViewSize size = extent();
    scroll_ = {std::clamp(position.x, 0, std::max(size.width - window_.width, 0)),
               std::clamp(position.y, 0, std::max(size.height - window_.height, 0))};
}

void ViewGeometry::show_pixel(ViewPoint pixel) {
    scroll_to(
        {shown(scroll_.x, across().edge_of(pixel.x), across().edge_of(pixel.x + 1), window_.width),
         shown(scroll_.y, down().edge_of(pixel.y), down().edge_of(pixel.y + 1), window_.height)});
}

ViewGeometry::Bars ViewGeometry::bars_within(ViewSize area, ViewSize bars) const {
    const ViewSize size = extent();
    const bool first_across = size.width > area.width;
    const bool down = size.height > area.height - (first_across ? bars.height : 0);
    const bool across = size.width > area.width - (down ? bars.width : 0);
    return {across, down};
}

bool ViewGeometry::covers(ViewPoint point) const {
    const ViewSize size = extent();
    return point.x >= 0 && point.y >= 0 && point.x < window_.width && point.y < window_.height &&
           point.x + scroll_.x < size.width && point.y + scroll_.y < size.height;
}

ViewPoint ViewGeometry::pixel_at(ViewPoint point) const {
    return {across().pixel_at(point.x + scroll_.x), down().pixel_at(point.y + scroll_.y)};
}

PixelRect ViewGeometry::place_of(const PixelRect& pixels) const {
    const int left = across().edge_of(pixels.left);
    const int top = down().edge_of(pixels.top);
    const int right = across().edge_of(pixels.left + pixels.width);
    const int bottom = down().edge_of(pixels.top + pixels.height);
    return {left - scroll_.x, top - scroll_.y, std::max(right - left, 1),
            std::max(bottom - top, 1)};
}

} // namespace kelvane
