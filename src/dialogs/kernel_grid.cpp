#include "dialogs/kernel_grid.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>

namespace kelvane {
namespace {

constexpr int kReach = KernelGrid::kSide / 2;

int cell_of(int i, int j) {
    return (kReach + j) * KernelGrid::kSide + kReach + i;
}

int distance_from_centre(int cell) {
    return std::max(std::abs(cell / KernelGrid::kSide - kReach),
                    std::abs(cell % KernelGrid::kSide - kReach));
}

} // namespace

KernelGrid KernelGrid::around(const FilterKernel& kernel) {
    KernelGrid grid;
    for (int j = -kernel.half(); j <= kernel.half(); ++j)
        for (int i = -kernel.half(); i <= kernel.half(); ++i)
            grid.set_value(cell_of(i, j), kernel.cell(i, j));
    return grid;
}

KernelGrid KernelGrid::reset() {
    KernelGrid grid;
    grid.set_value(kCentre, 1);
    return grid;
}

int KernelGrid::sum() const {
    return std::accumulate(values_.begin(), values_.end(), 0);
}

std::optional<int> KernelGrid::radius() const {
    std::optional<int> farthest;
    for (int cell = 0; cell < kCells; ++cell)
        if (value(cell) != 0) farthest = std::max(farthest.value_or(0), distance_from_centre(cell));
    return farthest;
}

FilterKernel KernelGrid::kernel(std::int32_t weight) const {
    FilterKernel kernel(2 * radius().value_or(0) + 1, weight);
    for (int j = -kernel.half(); j <= kernel.half(); ++j)
        for (int i = -kernel.half(); i <= kernel.half(); ++i)
            kernel.set_cell(i, j, value(cell_of(i, j)));
    return kernel;
}

} // namespace kelvane
