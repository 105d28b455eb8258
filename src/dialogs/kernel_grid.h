// The coefficients in the grid of the filter editor.
#pragma once

#include "process/filter_kernel.h"

#include <array>
#include <cstdint>
#include <optional>

namespace kelvane {

/// 7 x 7 whole numbers, cell = row x 7 + column, row 0 on top; the centre is cell 24. The grid's
/// rows are the kernel's in ascending order: the row below the centre is the kernel's j = +1.
class KernelGrid {
  public:
    static constexpr int kSide = 7;
    static constexpr int kCells = kSide * kSide;
    static constexpr int kCentre = kCells / 2;
    /// Largest magnitude of a coefficient. With 49 of them no sum over a picture leaves 32 bits.
    static constexpr int kLargestValue = 99999;

    int value(int cell) const { return values_[static_cast<std::size_t>(cell)]; }
    void set_value(int cell, int value) { values_[static_cast<std::size_t>(cell)] = value; }

    /// The grid around a kernel of at most 7 x 7; cells outside the kernel are 0.
    static KernelGrid around(const FilterKernel& kernel);
    /// The kernel that changes nothing: 1 in the centre.
    static KernelGrid reset();

    int sum() const;
    /// Distance from the centre to the farthest coefficient that is not 0, along rows or columns;
    /// 0 when only the centre is not, none when all are 0.
    std::optional<int> radius() const;
    /// The square of side 2 x radius + 1 around the centre, which holds all coefficients other than
    /// 0. `radius()` must be at least 1.
    FilterKernel kernel(std::int32_t weight) const;

  private:
    std::array<int, kCells> values_{};
};

} // namespace kelvane
