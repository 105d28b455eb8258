// Random numbers, and pictures made of them.
#pragma once

#include "image/image_view.h"

#include <cstdint>
#include <random>

namespace kelvane {

/// Uniform numbers; the same seed gives the same sequence on every system.
class RandomSource {
  public:
    explicit RandomSource(std::uint32_t seed) : generator_(seed) {}
    /// At least 0 and below 1, 32 random bits.
    double next() { return generator_() * 0x1p-32; }

  private:
    std::mt19937 generator_;
};

/// Fills the picture with noise of 0 to 255. Grey: row by row, one number a pixel for all three
/// bytes. Colour: column by column, green and then red from a number each; blue stays 0.
void randomise_bits(ImageView image, bool grey, RandomSource& random);

} // namespace kelvane
