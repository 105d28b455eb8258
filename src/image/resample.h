// Bilinear resampling.
#pragma once

#include "image/image_view.h"

namespace kelvane {

/// Fills `to` with `from` at the size of `to`, neither of them empty.
///
/// Target pixel (x, y) samples the source at (x * (w - 1) / W, y * (h - 1) / H): the last source
/// row and column are approached and never reached. Each channel is interpolated vertically and
/// rounded, then horizontally and rounded again, halves to the even neighbour.
void resample_bilinear(ConstImageView from, ImageView to);

} // namespace kelvane
