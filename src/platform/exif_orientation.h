// A photograph's orientation mark.
#pragma once

#include <cstdint>
#include <span>

namespace kelvane {

/// The EXIF orientation (1 to 8) of a JPEG file's bytes; 1, upright, when there is none or the
/// file is something else.
int exif_orientation(std::span<const std::uint8_t> file_bytes);

} // namespace kelvane
