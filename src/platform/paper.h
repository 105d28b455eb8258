// Decoded pixels onto white paper: what both picture readers end with.
#pragma once

#include "image/dib_section.h"

#include <cstddef>
#include <cstdint>

namespace kelvane {

/// Where a decoded pixel keeps its channels, as byte offsets; `alpha` is straight (not multiplied
/// into the colours), and negative when there is none.
struct PixelLayout {
    int bytes;
    int blue;
    int green;
    int red;
    int alpha;
};

/// Fills the bottom-up `picture`, already of the right size, from top-down pixels whose rows are
/// `row_step` bytes apart. A transparent pixel shows exactly 255, an opaque one its own colour,
/// one between is rounded to the nearest.
void put_on_white_paper(const std::uint8_t* top_row, std::ptrdiff_t row_step,
                        const PixelLayout& layout, cDIBSection& picture);

/// An empty picture of that size; throws `FileError` when it would pass 2 GB or memory is short.
cDIBSection create_picture(std::int64_t width, std::int64_t height);

} // namespace kelvane
