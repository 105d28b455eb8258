// What a photograph's file says beside its pixels.
#pragma once

#include <cstdint>
#include <span>

namespace kelvane {

/// The orientation mark, 1 to 8, of a JPEG file (in its EXIF segment) or a TIFF file (of its first
/// picture); 1 for other files, without a mark, and where the mark is damaged.
int orientation_mark(std::span<const std::uint8_t> file_bytes);

/// False for a JPEG or PNG file that ends before its picture does: some decoders fill the rest with
/// gray and are content. False too for a bitmap file that ends in its headers. True for all others.
bool is_complete(std::span<const std::uint8_t> file_bytes);

} // namespace kelvane
