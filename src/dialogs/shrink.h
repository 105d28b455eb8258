// Shrinking by averages, for previews of pictures that are black and white.
#pragma once

#include "image/image_view.h"

namespace kelvane {

/// Fills `to` with the averages of the pixels of `from` that each of its pixels covers: thin lines
/// become grey ones, where sampling would drop them. `to` is not empty and in neither direction
/// larger than `from`.
void shrink_by_average(ConstImageView from, ImageView to);

} // namespace kelvane
