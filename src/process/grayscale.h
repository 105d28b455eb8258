// Grey of a pixel's luminance.
#pragma once

#include "image/image_view.h"
#include "image/progress.h"

namespace kelvane {

/// Each pixel becomes round((222 R + 707 G + 71 B) / 1000), halves to even, in all three bytes.
/// Columns are reported as byte offsets 0, 3, ... 3 x width - 3.
void GrayScale(ImageView image, ProgressObserver* observer = nullptr);

} // namespace kelvane
