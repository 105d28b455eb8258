// Pictures that the OLE picture loader knows beyond WIC: metafiles and cursors.
#pragma once

#include "image/dib_section.h"

#include <cstdint>
#include <span>

namespace kelvane {

/// The picture drawn on white paper at its natural size (96 pixels per inch). Throws `FileError`
/// when the loader does not know the format. COM must be running.
cDIBSection read_with_ole(std::span<const std::uint8_t> file_bytes);

} // namespace kelvane
