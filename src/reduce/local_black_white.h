// Reduction to black and white for pictures whose light is uneven.
#pragma once

#include "image/image_view.h"
#include "image/progress.h"

namespace kelvane {

/// Sides of the neighbourhood that `LocalBlackWhite` takes, odd numbers only.
inline constexpr int kLeastNeighbourhood = 3;
inline constexpr int kLargestNeighbourhood = 999;
/// What it takes off the mean, either way.
inline constexpr int kLargestOffset = 255;

/// Black where the grey (see `GrayScale`) is at most the mean of the greys in the `size` x `size`
/// neighbourhood less `offset`, white elsewhere. The mean is not rounded; beyond the picture's
/// edges its outermost pixels are repeated. Source and destination have one size and may be the
/// same picture; both end up holding the result. The time hardly depends on `size`. Reports memory
/// rows.
void LocalBlackWhite(ImageView source, ImageView destination, int size, int offset,
                     ProgressObserver* observer = nullptr);

} // namespace kelvane
