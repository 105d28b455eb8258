// Windows bitmaps as they are read: files, and the bitmaps without a file header in icons.
#pragma once

#include "image/completeness.h"

#include <optional>

namespace kelvane {

/// What the header of a device-independent bitmap says.
struct DibHeader {
    std::int64_t width = 0;
    std::int64_t height = 0; ///< absolute value: the sign gives the row order
    std::uint32_t bits = 0;  ///< of a pixel
    std::uint32_t compression = 0;
    std::uint32_t bytes = 0;         ///< of the header itself
    std::uint64_t palette_bytes = 0; ///< of the colours or masks behind it

    /// Bytes of `height` rows of `pixel_bits` a pixel, each padded to four bytes.
    std::uint64_t row_bytes(std::uint32_t pixel_bits) const {
        return (static_cast<std::uint64_t>(width) * pixel_bits + 31) / 32 * 4;
    }
};

/// The header at the start of `dib`; nothing when it is cut short or none that is known.
std::optional<DibHeader> read_dib_header(Bytes dib);

bool is_bitmap(Bytes file_bytes);

/// Whether all rows of a bitmap file are there.
Completeness bitmap_completeness(Bytes file_bytes);

} // namespace kelvane
