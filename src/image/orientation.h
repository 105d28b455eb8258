// The orientation mark of photographs and scans.
#pragma once

#include "image/byte_numbers.h"

namespace kelvane {

/// The orientation mark, 1 to 8, of a JPEG file (in its EXIF segment) or a TIFF file (of its first
/// picture); 1 for other files, without a mark, and where the mark is damaged.
int orientation_mark(Bytes file_bytes);

} // namespace kelvane
