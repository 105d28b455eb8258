// The 3 x 3 rank filters.
#pragma once

#include "image/image_view.h"
#include "image/progress.h"
#include "process/filter_target.h"

namespace kelvane {

enum class Rank { Mean, Minimum, Maximum };

/// Fills the interior of `to` (one size with `from`, not the same pixels) with the rank of each
/// channel's nine neighbours. What is offered as the median is their mean, rounded down. The
/// border of one pixel is not written. Columns are reported as byte offsets 3 to 3 x width - 6.
/// Two target rows are in use at a time.
void rank_filter(ConstImageView from, TargetRows to, Rank rank,
                 ProgressObserver* observer = nullptr, const PartDone& done = {});

} // namespace kelvane
