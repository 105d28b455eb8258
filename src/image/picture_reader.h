// Opening a picture file.
#pragma once

#include "image/dib_section.h"
#include "image/file_error.h"

#include <cstdint>
#include <filesystem>
#include <span>

namespace kelvane {

/// Reads the picture in `file`; transparent pixels come out as seen on white paper, a
/// photograph's orientation mark is honoured, of several images the first is taken. Throws
/// `FileError` with the cause (without the file's name) when there is none to be had.
cDIBSection read_picture(const std::filesystem::path& file);

/// The same for a picture file's bytes. Implemented by the platform: gdk-pixbuf on Linux, WIC and
/// the OLE picture loader on Windows.
cDIBSection decode_picture(std::span<const std::uint8_t> file_bytes);

} // namespace kelvane
