// Pictures through WIC: PNG, JPEG, TIFF, GIF, BMP, icons and whatever the system has codecs for.
#pragma once

#include "image/upright_picture.h"
#include "platform/com_windows.h"

#include <wincodec.h>

namespace kelvane {

/// Reads the first picture of the file in `stream` into `to`, which is told to turn it by
/// `orientation` (1 to 8). Throws `FileError`.
void read_wic_picture(IWICImagingFactory& factory, IStream& stream, int orientation,
                      UprightPicture& to);

} // namespace kelvane
