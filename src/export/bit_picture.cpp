#include "export/bit_picture.h"

#include "export/row_bits.h"

#include <algorithm>

namespace kelvane {

BitPicture::BitPicture(int width, int height)
    : width_(width), height_(height), row_words_((width + kWordPixels - 1) / kWordPixels),
      words_(static_cast<std::size_t>(height) * stride() + 1) {}

bool BitPicture::any(int left, int bottom, int right, int top) const {
    for (int y = bottom; y < top && left < right; ++y)
        if (first_bit(row(y), {left, right}) != right) return true;
    return false;
}

void BitPicture::crop(int left_words, int width, int height) {
    const std::size_t wide_stride = stride();
    width_ = width;
    height_ = height;
    row_words_ = (width + kWordPixels - 1) / kWordPixels;
    const Word in_last = ~Word{0} >> (row_words_ * kWordPixels - width);
    for (int y = 0; y < height; ++y) {
        const auto wide_row =
            words_.begin() + 1 + left_words +
            static_cast<std::ptrdiff_t>(wide_stride * static_cast<std::size_t>(y));
        std::copy(wide_row, wide_row + row_words_, row(y)); // never to a higher place
        row(y)[-1] = 0;
        row(y)[row_words_ - 1] &= in_last;
    }
    words_.resize(static_cast<std::size_t>(height) * stride() + 1);
    words_.back() = 0;
}

BitPicture drawn_pixels(ConstImageView image) {
    if (image.empty()) return {};
    BitPicture drawn(image.width, image.height);
    for (int y = 0; y < image.height; ++y)
        for (int i = 0, x = 0; x < image.width; ++i, x += BitPicture::kWordPixels)
            drawn.row(y)[i] =
                dark_bits(image.pixel(x, y), std::min(BitPicture::kWordPixels, image.width - x));
    const Run bottom_row{0, drawn.width()};
    if (int x = first_bit(drawn.row(0), bottom_row); is_lost(x))
        for (; x < drawn.width() && drawn.get(x, 0); ++x)
            drawn.clear(x, 0);
    return drawn;
}

} // namespace kelvane
