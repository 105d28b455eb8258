// Convolution with a small square kernel.
#pragma once

#include "image/image_view.h"
#include "image/progress.h"
#include "process/filter_kernel.h"
#include "process/filter_target.h"

namespace kelvane {

/// Fills the interior of `to` (one size with `from`, not the same pixels): each channel is the
/// sum over the kernel, in 32-bit arithmetic that wraps, divided by the weight toward zero and
/// clamped to 0 .. 255. The kernel's weight is not 0. A border of half a kernel on every side of
/// `to` is not written. Columns are reported as byte offsets 3 x half to 3 x (width - half - 1).
/// `to` has at least `rows_in_use` rows.
void convolve(ConstImageView from, TargetRows to, const FilterKernel& kernel,
              ProgressObserver* observer = nullptr, const PartDone& done = {});

/// How many rows of its target `convolve` has in use at a time.
inline int rows_in_use(const FilterKernel& kernel) {
    return kernel.half() + 1;
}

} // namespace kelvane
