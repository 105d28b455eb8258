// One direction of a zoomed picture: how its pixels map to pixels of the window.
#pragma once

namespace kelvane {

/// `size` pixels of the picture are shown as `extent` pixels of the window; both are at least 1.
/// Positions count from 0 at the left or top edge of the picture.
struct AxisScale {
    int size = 1;
    int extent = 1;

    /// The picture's pixel in the middle of window pixel `position`; a position beside the picture
    /// gives the first or last pixel.
    int pixel_at(int position) const;
    /// The first window pixel that shows `pixel`, 0 to `size`; `extent` for `size`.
    int edge_of(int pixel) const;

    friend bool operator==(const AxisScale&, const AxisScale&) = default;
};

} // namespace kelvane
