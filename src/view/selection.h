// The rectangle that the user has selected in a picture.
#pragma once

#include "process/geometry.h"
#include "view/view_geometry.h"

#include <optional>

namespace kelvane {

/// Spans two pixels, both included, that are opposite corners: `anchor` stays and `corner` moves
/// while the user drags or presses keys. Pixels count from the upper left.
class Selection {
  public:
    /// Nothing while there is no selection.
    std::optional<PixelRect> rect() const;
    ViewPoint corner() const { return corner_; }
    explicit operator bool() const { return exists_; }

    void clear() { exists_ = false; }
    void span(ViewPoint anchor, ViewPoint corner);
    /// Puts the corner that moves on another pixel, or the nearest one of a picture of that size.
    void move_corner(int right, int down, ViewSize picture);
    /// Moves the rectangle, as far as the picture's edges let it.
    void move(int right, int down, ViewSize picture);

  private:
    bool exists_ = false;
    ViewPoint anchor_{};
    ViewPoint corner_{};
};

} // namespace kelvane
