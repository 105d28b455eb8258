// The inner loops of resampling, one set for each kind of processor.
#pragma once

#include <cstdint>

namespace kelvane {

/// A weight w in 0 .. 1 in parts of 2^-32, cut into what 16-bit lanes multiply by:
/// w x 2^16 = high + low / 2^16, and 2^16 more where `second` is set.
struct FixedWeight {
    std::int16_t high;
    std::int16_t low;
    std::int16_t second; ///< -1 for weights from one half on (count from the second sample), else 0
};

FixedWeight fixed_weight(double weight);

/// The weights of a row of bytes, each array as long as the row.
struct RowWeights {
    const double* exact;
    const std::int16_t* high; ///< these three: the fields of `FixedWeight`
    const std::int16_t* low;
    const std::int16_t* second;
};

/// Both make `count` bytes round((1 - weight) x a + weight x b), halves to the even neighbour, in
/// double precision; weights lie in 0 .. 1. `to` overlaps neither `a` nor `b`.
struct ResampleRows {
    void (*one_weight)(const std::uint8_t* a, const std::uint8_t* b, std::uint8_t* to, int count,
                       double weight);
    /// A weight for every byte.
    void (*many_weights)(const std::uint8_t* a, const std::uint8_t* b, std::uint8_t* to, int count,
                         const RowWeights& weights);
};

extern const ResampleRows kBaselineResampleRows;
extern const ResampleRows kAvx2ResampleRows;

/// The fastest set this processor may use.
const ResampleRows& resample_rows();

} // namespace kelvane
