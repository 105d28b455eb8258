// Pictures of one bit a pixel.
#pragma once

#include "image/image_view.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kelvane {

/// A picture of set and clear pixels, 64 a word, row 0 at the bottom.
class BitPicture {
  public:
    using Word = std::uint64_t;
    static constexpr int kWordPixels = 64;

    BitPicture() = default;
    /// All pixels clear. Throws `std::bad_alloc` when there is no memory for them.
    BitPicture(int width, int height);

    int width() const { return width_; }
    int height() const { return height_; }
    /// The pixel at column `x`, 0 <= x < width(), of row `y`, 0 <= y < height().
    bool get(int x, int y) const { return row(y)[x / kWordPixels] >> x % kWordPixels & 1; }
    void clear(int x, int y) { row(y)[x / kWordPixels] &= ~(Word{1} << x % kWordPixels); }
    /// Whether a pixel is set in columns `left` to `right` - 1 of rows `bottom` to `top` - 1, all
    /// of them inside the picture: tells whether a pixel of a reduced picture has any.
    bool any(int left, int bottom, int right, int top) const;

    /// The words of a row; pixel x is bit x % 64 of word x / 64. Bits beyond the width are clear. A
    /// clear word stands before the first and behind the last, for reading.
    Word* row(int y) { return words_.data() + offset(y); }
    const Word* row(int y) const { return words_.data() + offset(y); }
    int row_words() const { return row_words_; }

    /// Keeps the columns from 64 x `left_words` on and the rows from 0 on. Memory is kept, too.
    void crop(int left_words, int width, int height);

  private:
    std::size_t offset(int y) const { return static_cast<std::size_t>(y) * stride() + 1; }
    // The clear word behind a row is also the one before the next row.
    std::size_t stride() const { return static_cast<std::size_t>(row_words_) + 1; }

    int width_ = 0;
    int height_ = 0;
    int row_words_ = 0;
    std::vector<Word> words_;
};

/// The pixels that an export of `image` draws: those whose blue byte is dark, without the run that
/// is lost when the first dark pixel lies at column 1 of row 0.
BitPicture drawn_pixels(ConstImageView image);

} // namespace kelvane
