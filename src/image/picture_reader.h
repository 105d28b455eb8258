// Opening a picture file.
#pragma once

#include "base/file_error.h"
#include "image/byte_numbers.h"
#include "image/dib_section.h"
#include "image/transparency.h"

#include <filesystem>

namespace kelvane {

class UprightPicture;

/// Decodes a picture file's bytes; `transparency` tells what transparent pixels become, and changes
/// nothing in a picture without any. The orientation mark is applied. Of several images the first
/// is taken, of an icon the largest, of an animation the whole canvas with its first frame. Throws
/// `FileError` with the cause (without the file's name) when no picture can be read; truncated
/// files are refused.
cDIBSection decode_picture(Bytes file_bytes, Transparency transparency = Transparency::Paper);

/// Reads the picture in `file`, its transparent pixels on paper. Throws as `decode_picture`, and
/// when the file cannot be read.
cDIBSection read_picture(const std::filesystem::path& file);

/// Decodes a file of one picture into `picture`. Implemented by the platform: gdk-pixbuf on Linux,
/// WIC and the OLE picture loader on Windows. Throws `FileError`.
void decode_rows(Bytes file_bytes, UprightPicture& picture);

} // namespace kelvane
