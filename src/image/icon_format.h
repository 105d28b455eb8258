// Icons and cursors: files of several images.
#pragma once

#include "image/completeness.h"

#include <vector>

namespace kelvane {

/// True for a file of icons or of cursors.
bool is_icon(Bytes file_bytes);

/// Whether the image that is shown is complete. Shown is the image with the most pixels; equal ones
/// are ordered by their number of colours, then by their place in the file.
Completeness icon_completeness(Bytes file_bytes);

/// That image as a file of its own: an icon file of one image, or a PNG file.
std::vector<std::uint8_t> largest_icon(Bytes file_bytes);

} // namespace kelvane
