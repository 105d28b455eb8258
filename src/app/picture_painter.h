// Draws a picture as its view shows it.
#pragma once

#include "image/dib_section.h"
#include "view/view_geometry.h"

#include <windows.h>

#include <optional>

namespace kelvane {

/// At 1:1 the picture is drawn directly. At every other zoom a scaled copy of the part that the
/// window shows is kept and drawn until that part or the picture changes.
class PicturePainter {
  public:
    /// Draws the part of the picture that the window has room for, in its upper left corner. With
    /// too little memory for the copy nothing is drawn.
    void draw(HDC context, const cDIBSection& picture, const ViewGeometry& view);
    /// The picture has changed.
    void forget() { copied_.reset(); }

  private:
    struct Part {
        AxisScale across;
        AxisScale down;
        ViewPoint from;
        ViewSize size;
        friend bool operator==(const Part&, const Part&) = default;
    };
    bool copy(const cDIBSection& picture, const Part& part);

    std::optional<Part> copied_;
    cDIBSection copy_;
};

} // namespace kelvane
