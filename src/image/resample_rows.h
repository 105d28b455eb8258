// The inner loops of resampling, once for every processor level.
#pragma once

#include <cstdint>

namespace kelvane {

/// Both make `count` bytes round((1 - weight) x a + weight x b), halves to the even neighbour, in
/// double precision; weights lie in 0 .. 1. `to` overlaps neither `a` nor `b`.
struct ResampleRows {
    void (*one_weight)(const std::uint8_t* a, const std::uint8_t* b, std::uint8_t* to, int count,
                       double weight);
    /// A weight for every byte.
    void (*many_weights)(const std::uint8_t* a, const std::uint8_t* b, std::uint8_t* to, int count,
                         const double* weights);
};

/// The loops for the processor at hand.
const ResampleRows& resample_rows();

/// Each level's own; only `resample_rows` calls them.
const ResampleRows& resample_rows_baseline();
const ResampleRows& resample_rows_avx2();

} // namespace kelvane
