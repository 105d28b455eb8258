// Pixels of one bit, 64 in a word.
#pragma once

#include <cstdint>

namespace kelvane {

/// The first pixel in the lowest bit.
using BitWord = std::uint64_t;
inline constexpr int kWordBits = 64;

} // namespace kelvane
