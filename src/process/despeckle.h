// Clean-up of black and white pictures.
#pragma once

#include "image/image_view.h"
#include "image/progress.h"

namespace kelvane {

/// Makes the picture black (grey, see `GrayScale`, of at most `limit`, 0 to 255) and white without
/// specks: dark areas of at most `most` pixels become white, then light areas of at most `most`
/// pixels become black. Dark pixels that touch at a corner are one area, light ones are not. `most`
/// is not negative. The time is proportional to the number of pixels and does not depend on `most`.
/// Progress counts the memory rows of four passes, 0 to 4 x height - 1, those of the first two in
/// pairs.
void Despeckle(ImageView image, int limit, int most, ProgressObserver* observer = nullptr);

} // namespace kelvane
