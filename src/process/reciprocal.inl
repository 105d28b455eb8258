// Division in 16-bit lanes by a divisor that stays the same. For the inner loops only: internal
// linkage, compiled once per processor level.
#pragma once

#include <cstdint>

namespace kelvane {
namespace {

// Division of 0 .. 32767 by d in 16-bit lanes. With l = ceil(log2 d) and
// m = floor(2^(15 + l) / d) + 1, m x d lies in (2^(15 + l), 2^(15 + l) + 2^l], for which
// floor(n x m / 2^(15 + l)) = floor(n / d) for every n below 2^15; m is below 2^16. The product's
// upper half needs one bit more, hence 2n.
struct Reciprocal {
    std::uint16_t multiplier;
    int shift;
};

Reciprocal reciprocal_of(std::int32_t divisor) {
    // From 32768 on every quotient is 0, as it is for 32768.
    const std::int32_t d = divisor > 32768 ? 32768 : divisor;
    int shift = 0;
    while ((1 << shift) < d)
        ++shift;
    const std::uint64_t power = std::uint64_t{1} << (15 + shift);
    return {static_cast<std::uint16_t>(power / static_cast<std::uint32_t>(d) + 1), shift};
}

} // namespace
} // namespace kelvane
