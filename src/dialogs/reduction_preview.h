// Preview of a reduction to black and white, fast enough to follow a slider.
//
// Reducing a whole scan takes too long. Reducing a small copy would give other edges, which depend
// on neighbouring pixels. So there are two views, both made from the picture's own pixels: an
// overview of some of the rows, shrunk after the reduction (edges are drawn stronger, or they would
// vanish), and a detail at one pixel to one pixel.
//
// Uneven light and specks depend on more than direct neighbours and need the whole picture: up to
// 700 ms for 24 million noisy pixels. The dialog lets such an update wait until the user pauses,
// and the update stops when the user goes on.
#pragma once

#include "dialogs/preview_size.h"
#include "engine/image_process.h"
#include "image/dib_section.h"
#include "image/progress.h"

#include <optional>

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

    /// Makes both views. A reduction that cannot be made shows the picture unreduced. When memory
    /// runs out the views are empty or stay as they were.
    ///
    /// `observer` follows the reduction of a whole picture; what it throws passes through, and both
    /// views stay as they were.
    void update(const Reduction& reduction, ProgressObserver* observer = nullptr);
    /// `update` may take longer than the user would notice, some 50 ms.
    bool takes_long(const Reduction& reduction) const;
    /// Centres the detail on the point (x, y) of the overview, y from the top, as far as the
    /// picture's borders allow. True when it has moved; `update` has to follow.
    bool centre_detail_at(int x, int y);

    /// Moves the detail by eighths of its width and height, as far as the picture's borders allow.
    /// Result as above.
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
    bool reduce_whole(const Reduction& reduction, ProgressObserver* observer);
    void update_overview(const Reduction& reduction);
    void shrink_to_overview(ConstImageView reduced, const Reduction& reduction);
    void update_detail(const Reduction& reduction);

    const cDIBSection& picture_;
    PreviewSize size_;
    PixelArea area_;
    /// Every n-th row of the picture, and these rows reduced.
    cDIBSection rows_;
    cDIBSection work_;
    /// 1 if `rows_` has an extra row at the bottom, else 0. The reduction to edges leaves the
    /// bottom row unreduced; the extra row is not drawn in the overview.
    int spare_rows_ = 0;
    /// The whole picture after `whole_reduction_`, if any; kept while the detail moves.
    cDIBSection whole_;
    std::optional<Reduction> whole_reduction_;
    cDIBSection overview_;
    cDIBSection detail_;
};

} // namespace kelvane
