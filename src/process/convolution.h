// Convolution with a small square kernel.
#pragma once

#include "image/image_view.h"
#include "image/progress.h"
#include "process/filter_kernel.h"
#include "process/row_done.h"

namespace kelvane {

/// Fills the interior of `to` (one size with `from`, not the same pixels): each channel is the
/// sum over the kernel, in 32-bit arithmetic that wraps, divided by the weight toward zero and
/// clamped to 0 .. 255. The kernel's weight is not 0. A border of half a kernel on every side of
/// `to` is not written. Columns are reported as byte offsets 3 x half to 3 x (width - half - 1).
/// `to` has `target_rows` rows at least.
void convolve(ConstImageView from, TargetRows to, const FilterKernel& kernel,
              ProgressObserver* observer = nullptr, const RowDone& row_done = {});

/// How many rows of its target `convolve` has in use at a time: few for a kernel that is walked
/// row by row, all `height` for a large one.
int target_rows(const FilterKernel& kernel, int height);

} // namespace kelvane
