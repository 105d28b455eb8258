// A picture of one bit a pixel.
#pragma once

#include "process/bit_word.h"

#include <cstddef>
#include <vector>

namespace kelvane {

/// A row ends with at least one bit that is no pixel; those are 0.
class BitRows {
  public:
    BitRows(int width, int height)
        : width_(width), height_(height), words_(static_cast<std::size_t>(width / kWordBits) + 1),
          bits_(words_ * static_cast<std::size_t>(height)) {}

    int width() const { return width_; }
    int height() const { return height_; }
    /// Words of a row.
    std::size_t words() const { return words_; }
    BitWord* row(int y) { return bits_.data() + words_ * static_cast<std::size_t>(y); }
    const BitWord* row(int y) const { return bits_.data() + words_ * static_cast<std::size_t>(y); }

    /// Inverts the pixels of row y.
    void invert_row(int y) {
        for (std::size_t i = 0; i < words_; ++i)
            row(y)[i] = ~row(y)[i];
        clear_rest(y);
    }
    /// Clears the bits of row y that are no pixels.
    void clear_rest(int y) { row(y)[words_ - 1] &= (BitWord{1} << width_ % kWordBits) - 1; }

  private:
    int width_;
    int height_;
    std::size_t words_;
    std::vector<BitWord> bits_;
};

} // namespace kelvane
