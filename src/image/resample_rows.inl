// The reference inner loops of resampling, in double precision. Compiled once per processor level:
// everything has internal linkage and nothing comes from the standard library, so that the linker
// cannot merge code of different levels. Left to the compiler's vectorizer.

#include "image/resample_rows.h"

namespace kelvane {
namespace {

// The last place of numbers of this size is 1: adding it rounds to whole numbers, halves to even,
// in one vector addition, and leaves the whole number in the lowest bits.
constexpr double kRounder = 6755399441055744.0; // 1.5 x 2^52

inline std::uint8_t blended(std::uint8_t a, std::uint8_t b, double weight) {
    const double value = (1 - weight) * a + weight * b;
    return static_cast<std::uint8_t>(__builtin_bit_cast(std::uint64_t, value + kRounder));
}

void exact_one_weight(const std::uint8_t* __restrict a, const std::uint8_t* __restrict b,
                      std::uint8_t* __restrict to, int count, double weight) {
    for (int k = 0; k < count; ++k)
        to[k] = blended(a[k], b[k], weight);
}

void exact_many_weights(const std::uint8_t* __restrict a, const std::uint8_t* __restrict b,
                        std::uint8_t* __restrict to, int count, const double* __restrict weights) {
    for (int k = 0; k < count; ++k)
        to[k] = blended(a[k], b[k], weights[k]);
}

} // namespace
} // namespace kelvane
