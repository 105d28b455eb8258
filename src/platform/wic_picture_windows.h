// Pictures through WIC: PNG, JPEG, TIFF, GIF, BMP, ICO and whatever the system has codecs for.
#pragma once

#include "image/dib_section.h"
#include "platform/com_windows.h"

#include <wincodec.h>

namespace kelvane {

/// The decoder for the picture at the start of `stream`; null when WIC cannot begin to read
/// it, the stream then stands at its start again.
ComPtr<IWICBitmapDecoder> wic_decoder(IWICImagingFactory& factory, IStream& stream);

/// The first picture of the file, of an icon the largest, turned by `orientation` (1 to 8) and
/// on white paper. Throws `FileError`.
cDIBSection wic_picture(IWICImagingFactory& factory, IWICBitmapDecoder& decoder, int orientation);

} // namespace kelvane
