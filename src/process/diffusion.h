// Error diffusion: pictures made of few colours.
//
// Pixels are visited column by column, rows ascending; a pixel passes its error to the right, into
// the next column, and below, into the next memory row. The last column receives none, the first
// none from below its own pixels. Both operations report columns as byte offsets 0, 3, ...
// 3 x width - 3; image and buffer have one size, are two pictures and both end up holding the
// result.
#pragma once

#include "image/image_view.h"
#include "image/progress.h"
#include "process/palette.h"

namespace kelvane {

/// Maps the image onto the palette's colours. 7/16 of a pixel's error go right and 4/16 below;
/// errors whose channels sum up to less than 4 are dropped. Where every entry is as far away as
/// black is from white the first one is taken. Throws `std::invalid_argument` on an empty palette.
void ApplyPalette(ImageView image, ImageView buffer, const cPalette& palette,
                  ProgressObserver* observer = nullptr);

/// Reduces the image to black and white. Greys below 129 turn black and pass on their value as the
/// error (none below 17), the others turn white and pass on 127 - grey: 7/16 right, 5/16 below and
/// 1/16 to below the right. The events of `GrayScale` come before its own.
void Steinberg(ImageView image, ImageView buffer, ProgressObserver* observer = nullptr);

} // namespace kelvane
