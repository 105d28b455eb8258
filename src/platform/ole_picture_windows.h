// Metafiles through the OLE picture loader.
#pragma once

#include "image/upright_picture.h"
#include "platform/com_windows.h"

namespace kelvane {

/// Draws the metafile of `size` bytes that begins where `stream` stands: at its natural size at 96
/// dpi, at most 4096 pixels a side, on white paper. Throws `FileError`.
void read_ole_picture(IStream& stream, LONG size, UprightPicture& to);

} // namespace kelvane
