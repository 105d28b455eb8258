// Random numbers that are the same on every system.
#pragma once

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

} // namespace kelvane
