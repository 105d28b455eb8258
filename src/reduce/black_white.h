// Reduction to black and white by brightness.
#pragma once

#include "image/image_view.h"
#include "image/progress.h"

namespace kelvane {

/// Turns `source` to grey, writes black into `destination` where the grey is at most `limit` and
/// white elsewhere, and copies `destination` back over `source`. Both have one size; they may be
/// the same picture.
void BlackAndWhite2(ImageView source, ImageView destination, int limit,
                    ProgressObserver* observer = nullptr);

} // namespace kelvane
