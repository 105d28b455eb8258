// A palette prepared for millions of look-ups.
#pragma once

#include "process/palette.h"

#include <cstdint>
#include <vector>

namespace kelvane {

/// Answers like `cPalette::ClosestIndex`, faster: the colour cube is cut into cells, and the first
/// look-up in a cell keeps the few entries that can be closest to any of its colours. The palette
/// must outlive it.
class ClosestColour {
  public:
    explicit ClosestColour(const cPalette& palette);

    /// Channels 0 to 255. 0 when no entry is closer than black to white.
    int index(int red, int green, int blue) {
        Cell& cell = cells_[cell_number(red, green, blue)];
        if (cell.count == 0) fill(cell, red, green, blue);
        const Entry* candidate = &candidates_[cell.first];
        if (cell.count == 1 && cell.sure) return candidate->index;
        return closest(candidate, cell.count, red, green, blue);
    }

  private:
    static constexpr int kCellBits = 3; // a cell is 8 colours wide
    static constexpr int kCellsPerSide = 256 >> kCellBits;

    struct Cell {
        std::uint32_t first = 0;
        std::uint32_t count : 31 = 0; // 0 before the first look-up
        std::uint32_t sure : 1 = 0;   // every colour has an entry closer than black is to white
    };
    struct Entry {
        std::int32_t index;
        cPalette::Colour colour;
    };

    static std::size_t cell_number(int red, int green, int blue) {
        return static_cast<std::size_t>(
            ((red >> kCellBits) * kCellsPerSide + (green >> kCellBits)) * kCellsPerSide +
            (blue >> kCellBits));
    }
    static int closest(const Entry* candidates, std::uint32_t count, int red, int green, int blue);
    void fill(Cell& cell, int red, int green, int blue);

    const cPalette& palette_;
    std::vector<Cell> cells_;
    std::vector<Entry> candidates_;
};

} // namespace kelvane
