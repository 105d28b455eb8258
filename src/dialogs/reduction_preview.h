// What a reduction to black and white would make of a picture, quickly enough to follow a slider.
//
// Reducing a whole scan takes too long for that, and a reduced small copy would lie: edges are
// steps between neighbouring pixels, and a small copy has other neighbours. So there are two
// views, both made from pixels that were reduced as they are: an overview of some of the picture's
// rows, shrunk after the reduction (edges are drawn stronger, or they would vanish), and a detail
// at one pixel to one pixel.
#pragma once

#include "dialogs/preview_size.h"
#include "engine/image_process.h"
#include "image/dib_section.h"

namespace kelvane {

/// A rectangle of pixels, y counting from the top.
struct PixelArea {
    int left;
    int top;
    int width;
    int height;
};

class ReductionPreview {
  public:
    /// `picture` is only read, and must live as long as the preview. Views fit into a square of
    /// `edge` pixels; the detail starts in the middle of the picture.
    explicit ReductionPreview(const cDIBSection& picture, int edge = kPreviewEdge);

    /// Makes both views anew. A reduction that cannot be made shows the picture unreduced. Without
    /// memory for them the views are empty.
    void update(const Reduction& reduction);
    /// Moves the detail so that its middle is what the overview shows at (x, y), y from the top,
    /// or as near as the picture's borders allow. False when it stays where it is; otherwise
    /// `update` has to follow.
    bool centre_detail_at(int x, int y);

    /// Moves the detail over the picture by so many of its eighths, to the right and down, as far
    /// as the picture's borders allow. The same answer.
    bool move_detail(int right, int down);

    const cDIBSection& overview() const { return overview_; }
    const cDIBSection& detail() const { return detail_; }
    /// The part of the picture that the detail shows, in the picture's pixels.
    const PixelArea& detail_area() const { return area_; }
    bool detail_shows_all() const;
    /// The area in the overview's pixels, at least 1 x 1.
    PixelArea detail_in_overview() const;

  private:
    void take_rows();
    bool place_detail(int left, int top);
    void update_overview(const Reduction& reduction);
    void update_detail(const Reduction& reduction);

    const cDIBSection& picture_;
    PreviewSize size_;
    PixelArea area_;
    /// Every so many rows of the picture, and the same reduced.
    cDIBSection rows_;
    cDIBSection work_;
    /// The bottom row stays unreduced where edges are looked for. Where that would be too much of
    /// the overview, this many rows below the first are there to take its place.
    int spare_rows_ = 0;
    cDIBSection overview_;
    cDIBSection detail_;
};

} // namespace kelvane
