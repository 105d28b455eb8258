// The resolution that a picture file states.
#pragma once

#include "image/byte_numbers.h"

#include <optional>

namespace kelvane {

/// Pixels per inch (25.4 mm), across and up the picture as its file stores it.
struct Resolution {
    double x;
    double y;
};

/// The resolution of a PNG (pHYs), JPEG (JFIF density, else EXIF), TIFF or bitmap file. Nothing for
/// other files, for those that state none or only an aspect ratio, and for numbers that no scanner
/// or program means: below 1 or above 1000000 pixels per inch.
std::optional<Resolution> file_resolution(Bytes file_bytes);

} // namespace kelvane
