// Where a picture lies on a larger canvas.
#pragma once

namespace kelvane {

/// In pixels; the picture may reach beyond the canvas.
struct Placement {
    int left = 0; ///< from the canvas's left and upper edge, never negative
    int top = 0;
    int canvas_width = 0;
    int canvas_height = 0;
};

} // namespace kelvane
