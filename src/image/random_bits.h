// A picture of random numbers.
#pragma once

#include "base/random_source.h"
#include "image/image_view.h"

namespace kelvane {

/// Fills the picture with noise of 0 to 255. Grey: row by row, one number a pixel for all three
/// bytes. Colour: column by column, green and then red from a number each; blue stays 0.
void randomise_bits(ImageView image, bool grey, RandomSource& random);

} // namespace kelvane
