#include "process/closest_colour.h"

#include <algorithm>
#include <cstdlib>

namespace kelvane {
namespace {

constexpr int kFarthest = 3 * 255;
// Limits the memory for large palettes: when it is reached, all cells are emptied and filled anew.
constexpr std::size_t kMostCandidates = std::size_t{1} << 22;

// Smallest and largest distance of an entry from the colours of a cell.
struct Reach {
    int nearest = 0;
    int farthest = 0;
};

Reach reach(const cPalette::Colour& entry, const std::array<int, 3>& low, int width) {
    Reach total;
    for (std::size_t i = 0; i < 3; ++i) {
        const int below = low[i] - entry[i];
        const int above = entry[i] - (low[i] + width - 1);
        total.nearest += std::max({below, above, 0});
        total.farthest += std::max(below + width - 1, above + width - 1);
    }
    return total;
}

} // namespace

ClosestColour::ClosestColour(const cPalette& palette)
    : palette_(palette),
      cells_(static_cast<std::size_t>(kCellsPerSide) * kCellsPerSide * kCellsPerSide) {}

void ClosestColour::fill(Cell& cell, int red, int green, int blue) {
    constexpr int kWidth = 1 << kCellBits;
    const std::array low{red & -kWidth, green & -kWidth, blue & -kWidth};
    int bound = kFarthest;
    for (const cPalette::Colour& colour : palette_.colours())
        bound = std::min(bound, reach(colour, low, kWidth).farthest);

    if (candidates_.size() > kMostCandidates) {
        candidates_.clear();
        std::fill(cells_.begin(), cells_.end(), Cell{});
    }
    cell.first = static_cast<std::uint32_t>(candidates_.size());
    for (int index = 1; index <= palette_.Count(); ++index) {
        const cPalette::Colour& colour = palette_.colours()[static_cast<std::size_t>(index) - 1];
        if (reach(colour, low, kWidth).nearest <= bound) candidates_.push_back({index, colour});
    }
    if (candidates_.size() == cell.first) candidates_.push_back({0, {}}); // an empty palette
    cell.count = static_cast<std::uint32_t>(candidates_.size() - cell.first) & 0x7FFFFFFF;
    cell.sure = bound < kFarthest || palette_.Count() == 0;
}

int ClosestColour::closest(const Entry* candidates, std::uint32_t count, int red, int green,
                           int blue) {
    int best = 0;
    int best_distance = kFarthest;
    for (const Entry* entry = candidates; entry != candidates + count; ++entry) {
        const int distance = std::abs(red - entry->colour[0]) + std::abs(green - entry->colour[1]) +
                             std::abs(blue - entry->colour[2]);
        const bool closer = distance < best_distance;
        best_distance = closer ? distance : best_distance;
        best = closer ? entry->index : best;
    }
    return best;
}

} // namespace kelvane
