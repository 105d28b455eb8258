// Windows bitmap files.
#pragma once

#include "image/image_view.h"

#include <cstdint>
#include <filesystem>
#include <vector>

namespace kelvane {

/// The picture as a 24-bit bitmap file, bottom row first, the padding of rows 0. Throws
/// `FileError` when that would pass 4 GB.
std::vector<std::uint8_t> encode_bitmap(ConstImageView image);

/// Writes that file; the one that was there stays when it fails. Throws `FileError`.
void save_bitmap(ConstImageView image, const std::filesystem::path& file);

} // namespace kelvane
