// A view of pixels that it does not own: what every kernel reads and writes.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kelvane {

/// Pixels of three bytes (blue, green, red), rows `row_step` bytes apart, row 0 at the bottom of
/// the picture. `Byte` is `std::uint8_t` or `const std::uint8_t`.
template <typename Byte> struct BasicImageView {
    Byte* bits = nullptr;
    int width = 0;
    int height = 0;
    std::ptrdiff_t row_step = 0;

    Byte* row(int y) const { return bits + row_step * y; }
    Byte* pixel(int x, int y) const { return row(y) + std::ptrdiff_t{3} * x; }
    bool empty() const { return width <= 0 || height <= 0; }
};

struct ImageView : BasicImageView<std::uint8_t> {};

/// The read-only view; a writable one converts to it.
struct ConstImageView : BasicImageView<const std::uint8_t> {
    ConstImageView() = default;
    ConstImageView(const std::uint8_t* first, int w, int h, std::ptrdiff_t step)
        : BasicImageView<const std::uint8_t>{first, w, h, step} {}
    ConstImageView(const ImageView& view) // NOLINT: implicit on purpose
        : BasicImageView<const std::uint8_t>{view.bits, view.width, view.height, view.row_step} {}
};

/// Copies the pixels of `from` over those of `to`; both must have one size. Padding is not copied.
void copy_pixels(ConstImageView from, ImageView to);

} // namespace kelvane
