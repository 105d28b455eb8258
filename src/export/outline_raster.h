// Drawing outlines on pixels, at any scale.
#pragma once

#include "export/outlines.h"
#include "image/image_view.h"

#include <vector>

namespace kelvane {

/// Fills the outlines that it receives, with anti-aliasing: each pixel is as dark as much of it is
/// inside. Bridges do not show: what an outline leaves out there its strip fills.
class OutlineRaster final : public OutlineReceiver {
  public:
    /// The outlines lie in an area of `width` x `height` units, which is scaled to `columns` x
    /// `rows` pixels; (0, 0) is the lower left corner. They may reach over its border by up to
    /// `margin` units. Throws `std::bad_alloc`.
    OutlineRaster(int width, int height, int columns, int rows, int margin);

    void begin_outline() override { at_first_ = true; }
    void add_vertices(std::span<const OutlineVertex> vertices) override;
    void end_outline() override { add_edge(last_, first_); }

    /// Draws black on white. `drawing` has `columns` x `rows` pixels, row 0 at the bottom.
    void draw(ImageView drawing) const;

  private:
    struct Point {
        double x;
        double y;
    };

    Point scaled(const OutlineVertex& vertex) const;
    template <double Point::*kAxis, class Use>
    static void cut_at_whole(const Point& from, const Point& to, Use use);
    void add_edge(const Point& from, const Point& to);
    void add_in_pixel(const Point& from, const Point& to);

    const double x_scale_;
    const double y_scale_;
    // Pixels around the drawing.
    const int margin_columns_;
    const int margin_rows_;
    const int stride_;
    // By how much more of a pixel is inside than of its left neighbour.
    std::vector<double> steps_;
    bool at_first_ = true;
    Point first_{};
    Point last_{};
};

} // namespace kelvane
