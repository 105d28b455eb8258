#include "process/geometry_rows.h"

#include "base/cpu.h"

#include <cstring>

namespace kelvane {
namespace {

void reverse(const std::uint8_t* from, std::uint8_t* to, int count) {
    to += std::ptrdiff_t{3} * count;
    for (; count > 0; --count, from += 3)
        std::memcpy(to -= 3, from, 3);
}

void transpose(const std::uint8_t* from, std::ptrdiff_t from_step, std::uint8_t* to,
               std::ptrdiff_t to_step, int columns, int rows) {
    for (int x = 0; x < columns; ++x, from += 3, to += to_step) {
        const std::uint8_t* pixel = from;
        for (int y = 0; y < rows; ++y, pixel += from_step)
            std::memcpy(to + 3 * y, pixel, 3);
    }
}

} // namespace

const GeometryRows kBaselineGeometryRows{reverse, transpose};

const GeometryRows& geometry_rows() {
    return fastest(kBaselineGeometryRows, kAvx2GeometryRows);
}

} // namespace kelvane
