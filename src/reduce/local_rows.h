// The inner loops of the reduction for uneven light, one set for each kind of processor.
#pragma once

#include <cstdint>

namespace kelvane {

/// All sets give the same bytes. Sums are kept modulo 2^32: their differences fit 31 bits.
struct LocalRows {
    /// Each column's sum takes in a grey of the row that enters the neighbourhood and gives one of
    /// the row that leaves it back. sums[x + 1] becomes sums[x] + columns[x]; sums[0] is given.
    void (*advance)(const std::uint8_t* enters, const std::uint8_t* leaves, std::uint32_t* columns,
                    std::uint32_t* sums, int count);
    /// light[x] is 0 where (greys[x] + offset) x size x size is at most sums[x + size] - sums[x],
    /// else 255. `size` is 3 to 999, `offset` -255 to 255.
    void (*compare)(const std::uint8_t* greys, const std::uint32_t* sums, int size, int offset,
                    std::uint8_t* light, int count);
};

extern const LocalRows kBaselineLocalRows;
extern const LocalRows kAvx2LocalRows;

/// The fastest set this processor may use.
const LocalRows& local_rows();

} // namespace kelvane
