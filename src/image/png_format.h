// PNG files.
#pragma once

#include "image/completeness.h"

namespace kelvane {

bool is_png(Bytes file_bytes);

/// The content of the first chunk that is called `name`; empty without one.
Bytes png_chunk(Bytes file_bytes, std::string_view name);

/// Whether all chunks up to the end mark are there, the checksums of those that decoding needs are
/// right, and the compressed data holds every row of every interlace pass.
Completeness png_completeness(Bytes file_bytes);

} // namespace kelvane
