// Pictures through the OLE picture loader: metafiles, cursors and other old formats.
#pragma once

#include "image/dib_section.h"
#include "platform/com_windows.h"

namespace kelvane {

/// The picture of `size` bytes that begins where `stream` stands, drawn on white paper. Metafiles
/// come at their natural size at 96 dpi, at most 4096 pixels a side. Throws `FileError`.
cDIBSection ole_picture(IStream& stream, LONG size);

} // namespace kelvane
