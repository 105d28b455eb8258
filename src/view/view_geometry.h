// Where a picture stands in the window that shows it: zoom and scroll position.
#pragma once

#include "process/geometry.h"
#include "view/axis_scale.h"

namespace kelvane {

struct ViewSize {
    int width = 0;
    int height = 0;
    friend bool operator==(const ViewSize&, const ViewSize&) = default;
};

struct ViewPoint {
    int x = 0;
    int y = 0;
    friend bool operator==(const ViewPoint&, const ViewPoint&) = default;
};

/// A picture, zoomed and scrolled, in a window. Points of the window and of the picture count from
/// the upper left. A picture that is smaller than the window stands in its upper left corner.
///
/// Zoom factors are hundredths of a percent; one that would make a side longer than
/// `kLongestExtent` becomes as large as it may be.
class ViewGeometry {
  public:
    static constexpr int kOneToOne = 10000;
    static constexpr int kSmallestZoom = 500;
    static constexpr int kLargestZoom = 320000;
    static constexpr int kLongestExtent = 1 << 30;

    /// A picture of another size, which may be empty; zoom and scroll position stay as far as they
    /// can.
    void set_picture(ViewSize size);
    ViewSize picture() const { return picture_; }
    /// What the window has room for, without scroll bars.
    void set_window(ViewSize size);
    ViewSize window() const { return window_; }

    int zoom() const { return zoom_; }
    /// Zooms so that the picture's point under `fixed`, a point of the window, stays there as far
    /// as the picture's edges let it.
    void zoom_to(int zoom, ViewPoint fixed);
    /// The next step up or down (100 %, 150 %, 200 % ...); the last one stays.
    int larger_zoom() const;
    int smaller_zoom() const;
    /// The largest zoom at which the whole picture fits in a window of this size.
    int fitting_zoom(ViewSize window) const;

    /// The picture's size at the current zoom, in window pixels; 0 x 0 for an empty one.
    ViewSize extent() const;
    AxisScale across() const { return scale(picture_.width, zoom_); }
    AxisScale down() const { return scale(picture_.height, zoom_); }

    /// How many window pixels of the zoomed picture are left of and above the window.
    ViewPoint scroll() const { return scroll_; }
    /// Scrolls there, or as far as the picture goes.
    void scroll_to(ViewPoint position);
    /// Scrolls as little as possible so that this pixel of the picture is seen.
    void show_pixel(ViewPoint pixel);

    /// Which scroll bars are needed in an area of this size. Each takes room from the other side:
    /// the vertical one `bars.width`, the horizontal one `bars.height`.
    struct Bars {
        bool across;
        bool down;
    };
    Bars bars_within(ViewSize area, ViewSize bars) const;

    /// Whether the picture is under this point of the window.
    bool covers(ViewPoint point) const;
    /// The picture's pixel under this point, or the nearest one. For pictures that are not empty.
    ViewPoint pixel_at(ViewPoint point) const;
    /// Where the window shows these pixels, at least one window pixel large.
    PixelRect place_of(const PixelRect& pixels) const;

  private:
    static AxisScale scale(int size, int zoom);
    int limited(int zoom) const;

    ViewSize picture_;
    ViewSize window_;
    int zoom_ = kOneToOne;
    ViewPoint scroll_;
};

} // namespace kelvane
