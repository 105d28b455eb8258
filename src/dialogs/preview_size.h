// The size at which a picture is shown in a preview.
#pragma once

namespace kelvane {

/// Edge of the box that previews fit into, in pixels.
inline constexpr int kPreviewEdge = 220;

struct PreviewSize {
    int width;
    int height;
};

/// The longer side becomes `edge`, smaller pictures are enlarged; the other side keeps the aspect
/// ratio, rounded with halves to the even neighbour and at least 1.
PreviewSize preview_size(int width, int height, int edge = kPreviewEdge);

} // namespace kelvane
