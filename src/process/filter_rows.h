// The inner loops of filters and sums over one span of a row, one set for each kind of processor.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kelvane {

/// The longest span, in bytes, that one call takes; a multiple of 3.
constexpr int kLongestSpan = 3072;

/// A convolution of which no partial sum leaves 16 signed bits, whatever the pixels are. Columns
/// of the kernel with the same cells are kept once.
struct NarrowKernel {
    static constexpr int kMost = 9;
    int size;                        // 1, 3, 5, 7 or 9
    int columns;                     // different ones
    std::int16_t cell[kMost][kMost]; // [column][row, lowest first]
    int column_at[kMost];            // which one stands where, leftmost first
    std::int32_t weight;             // above 0
};

/// Any other convolution: what is read for one output byte and how the sum becomes a byte.
struct Taps {
    static constexpr int kMost = 81;
    int count = 0;
    std::ptrdiff_t offset[kMost]; // bytes from the output byte's place in the source
    std::int32_t coefficient[kMost];
    std::int32_t weight = 1; // not 0
};

/// A weighted sum of two bytes: source x from + target x to + constant, where the constants
/// repeat every three bytes (blue, green, red).
struct ByteSum {
    std::int32_t from;
    std::int32_t to;
    std::int32_t constant[3];
};

/// One processor level's loops. `from` is the byte of the source at the place of `to`'s first;
/// `count` bytes are made. Sources and targets do not overlap.
struct FilterRows {
    /// The sum of weighted samples in wrapping 32-bit arithmetic, divided toward zero, clamped.
    void (*narrow)(const std::uint8_t* from, std::ptrdiff_t row_step, std::uint8_t* to, int count,
                   const NarrowKernel& kernel);
    void (*wide)(const std::uint8_t* from, std::uint8_t* to, int count, const Taps& taps);
    /// The same as `narrow` for a weight above 0 and coefficients of 8 bits whose magnitudes add up
    /// to 128 at most; faster for few taps. Null where the processor has nothing for it.
    void (*few)(const std::uint8_t* from, std::uint8_t* to, int count, const Taps& taps);
    /// The extreme of the nine samples around.
    void (*minimum)(const std::uint8_t* from, std::ptrdiff_t row_step, std::uint8_t* to, int count);
    void (*maximum)(const std::uint8_t* from, std::ptrdiff_t row_step, std::uint8_t* to, int count);
    /// `to` becomes the sum, wrapping and clamped; any count, the first byte is a pixel's blue.
    /// `add_narrow` is for sums that fit 16 signed bits.
    void (*add_narrow)(const std::uint8_t* from, std::uint8_t* to, int count, const ByteSum& sum);
    void (*add_wide)(const std::uint8_t* from, std::uint8_t* to, int count, const ByteSum& sum);
};

extern const FilterRows kBaselineFilterRows;
extern const FilterRows kAvx2FilterRows;

/// The fastest set this processor may use.
const FilterRows& filter_rows();

} // namespace kelvane
