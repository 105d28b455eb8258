// Where a picture holds something to draw.
#pragma once

#include "process/geometry.h"

#include <optional>

namespace kelvane {

/// A limit for `DarkBounds`: everything but white.
inline constexpr int kAnyGrey = 254;

/// The smallest rectangle with all pixels whose grey (see `GrayScale`) is at most `limit`, 0 to
/// 255; nothing when there is none. Reports memory rows.
std::optional<PixelRect> DarkBounds(ConstImageView image, int limit,
                                    ProgressObserver* observer = nullptr);

} // namespace kelvane
