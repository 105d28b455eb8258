// The limit of a black/white reduction found from the picture.
#pragma once

#include "image/image_view.h"
#include "image/progress.h"

namespace kelvane {

/// The limit for `BlackAndWhite`, 0 to 255, that keeps dark and light greys (see `GrayScale`) apart
/// best: Otsu's method. Where several limits do so the answer is that of OpenCV's `THRESH_OTSU`. A
/// picture of one grey gives 0. Reports memory rows.
int OtsuLimit(ConstImageView image, ProgressObserver* observer = nullptr);

} // namespace kelvane
