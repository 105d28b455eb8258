// Pictures that the Windows Imaging Component knows: PNG, TIFF, JPEG, GIF, BMP, ICO...
#pragma once

#include "image/dib_section.h"

#include <cstdint>
#include <optional>
#include <span>

namespace kelvane {

/// The picture, upright on white paper, of several images the first (of an icon's the largest).
/// Nothing when WIC does not know the format; throws `FileError` when it does and the file is
/// broken. COM must be running.
std::optional<cDIBSection> read_with_wic(std::span<const std::uint8_t> file_bytes);

} // namespace kelvane
