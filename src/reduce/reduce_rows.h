// The inner loops of the reductions, one set for each kind of processor.
#pragma once

#include <cstdint>

namespace kelvane {

/// A pixel is dark when blue x B + green x G + red x R is below `bound`. Weights are 0 to 32767.
struct DarkTest {
    int blue;
    int green;
    int red;
    int bound;
};

/// Each function reduces `count` pixels in a row to black and white and writes them to both
/// pictures, which may be one. All sets give the same bytes.
struct ReduceRows {
    void (*weigh)(std::uint8_t* source, std::uint8_t* destination, int count, const DarkTest& dark);
    /// Dark where the packed colour is at least `least_step` away from the left neighbour's.
    /// `left` holds the original pixel before the first; afterwards that of the last.
    void (*edges)(std::uint8_t* source, std::uint8_t* destination, int count, int least_step,
                  std::uint8_t* left);
};

extern const ReduceRows kBaselineReduceRows;
extern const ReduceRows kAvx2ReduceRows;

/// The fastest set this processor may use.
const ReduceRows& reduce_rows();

} // namespace kelvane
