// The text of resampling's inner loops, compiled once per processor level: everything has internal
// linkage and nothing comes from the standard library, so that the linker never hands one level's
// code to another. The loops are plain and left to the compiler's vectorizer.

#include "image/resample_rows.h"

namespace kelvane {
namespace {

// The last place of numbers of this size is 1: adding it rounds to whole numbers, halves to even,
// in one vector addition, and leaves the whole number in the lowest bits.
constexpr double kRounder = 6755399441055744.0; // 1.5 x 2^52

std::uint8_t rounded(double value) {
    return static_cast<std::uint8_t>(__builtin_bit_cast(std::uint64_t, value + kRounder));
}

void one_weight(const std::uint8_t* __restrict a, const std::uint8_t* __restrict b,
                std::uint8_t* __restrict to, int count, double weight) {
    const double rest = 1 - weight;
    for (int k = 0; k < count; ++k)
        to[k] = rounded(rest * a[k] + weight * b[k]);
}

void many_weights(const std::uint8_t* __restrict a, const std::uint8_t* __restrict b,
                  std::uint8_t* __restrict to, int count, const double* __restrict weights) {
    for (int k = 0; k < count; ++k)
        to[k] = rounded((1 - weights[k]) * a[k] + weights[k] * b[k]);
}

constexpr ResampleRows kRows{one_weight, many_weights};

} // namespace
} // namespace kelvane
