// The inner loops of mirroring and turning, one set for each kind of processor.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kelvane {

/// All sets give the same bytes. Sources and targets do not overlap.
struct GeometryRows {
    /// `count` pixels of a row in reverse order.
    void (*reverse)(const std::uint8_t* from, std::uint8_t* to, int count);
    /// Pixel x of the y-th row of `from` becomes pixel y of the x-th row of `to`, for `columns` by
    /// `rows` pixels. Rows are a step apart, which may be negative.
    void (*transpose)(const std::uint8_t* from, std::ptrdiff_t from_step, std::uint8_t* to,
                      std::ptrdiff_t to_step, int columns, int rows);
};

extern const GeometryRows kBaselineGeometryRows;
extern const GeometryRows kAvx2GeometryRows;

/// The fastest set this processor may use.
const GeometryRows& geometry_rows();

} // namespace kelvane
