// Opening a picture file.
#pragma once

#include "base/file_error.h"
#include "image/byte_numbers.h"
#include "image/dib_section.h"

#include <filesystem>

namespace kelvane {

class UprightPicture;

/// Reads the picture in `file`; transparent pixels come out as seen on white paper, a
/// photograph's orientation mark is honoured. Of several images the first is taken, of an icon the
/// largest, of an animation the whole canvas with its first frame. Throws `FileError` with the
/// cause (without the file's name) when there is none to be had, as for a file that holds only a
/// part of its picture.
cDIBSection read_picture(const std::filesystem::path& file);

/// The same for a picture file's bytes.
cDIBSection decode_picture(Bytes file_bytes);

/// Decodes a file of one picture into `picture`. Implemented by the platform: gdk-pixbuf on Linux,
/// WIC and the OLE picture loader on Windows. Throws `FileError`.
void decode_rows(Bytes file_bytes, UprightPicture& picture);

} // namespace kelvane
