#include "dialogs/kernel_grid.h"

#include "settings/lenient_number.h"

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

std::optional<int> whole_number(std::wstring_view text, int limit) {
    const auto first = text.find_first_not_of(L' ');
    if (first == std::wstring_view::npos) return std::nullopt;
    text = text.substr(first, text.find_last_not_of(L' ') - first + 1);
    const bool sign = text.front() == L'-' || text.front() == L'+';
    const std::wstring_view digits = text.substr(sign ? 1 : 0);
    if (digits.empty() || digits.find_first_not_of(L"0123456789") != std::wstring_view::npos)
        return std::nullopt;
    return std::clamp(lenient_integer(text), -limit, limit);
}

} // namespace kelvane
