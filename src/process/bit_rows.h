// A picture of one bit a pixel.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kelvane {

/// Bit x % 64 of word x / 64 is pixel x. A row ends with at least one bit that is no pixel; those
/// are 0.
class BitRows {
  public:
    using Word = std::uint64_t;
    static constexpr int kBits = 64;

    BitRows(int width, int height)
        : width_(width), height_(height), words_(static_cast<std::size_t>(width / kBits) + 1),
          bits_(words_ * static_cast<std::size_t>(height)) {}

    int width() const { return width_; }
    int height() const { return height_; }
    /// Words of a row.
    std::size_t words() const { return words_; }
    Word* row(int y) { return bits_.data() + words_ * static_cast<std::size_t>(y); }
    const Word* row(int y) const { return bits_.data() + words_ * static_cast<std::size_t>(y); }

    /// Ones where pixels of row y are 0 and the other way round.
    void invert_row(int y) {
        for (std::size_t i = 0; i < words_; ++i)
            row(y)[i] = ~row(y)[i];
        row(y)[words_ - 1] &= (Word{1} << width_ % kBits) - 1;
    }

  private:
    int width_;
    int height_;
    std::size_t words_;
    std::vector<Word> bits_;
};

} // namespace kelvane
