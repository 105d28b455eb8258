// GIF files: where the first frame stands on the canvas, and a file of that frame alone.
#pragma once

#include "image/completeness.h"
#include "image/placement.h"

#include <optional>
#include <vector>

namespace kelvane {

bool is_gif(Bytes file_bytes);

/// Whether the first frame has all of its pixels and at least one byte follows it, such as the end
/// mark. Later frames are never shown and may be truncated.
Completeness gif_completeness(Bytes file_bytes);

/// The first frame of a GIF file as a file of its own.
struct GifFrame {
    std::vector<std::uint8_t> file; ///< its canvas is as large as the frame
    Placement placement;            ///< of the frame on the canvas of the original
};

/// Nothing when the file ends before its first frame does.
std::optional<GifFrame> first_gif_frame(Bytes file_bytes);

} // namespace kelvane
