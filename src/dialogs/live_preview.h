// Preview of an operation, updated while the user changes its settings.
#pragma once

#include "image/dib_section.h"

#include <windows.h>

#include <functional>

namespace kelvane {

/// Works on a copy of the picture reduced to the preview's size, so that its time does not depend
/// on the picture's size.
class LivePreview {
  public:
    LivePreview() = default; // of no picture
    explicit LivePreview(const cDIBSection& picture);

    /// Reduces `box`, a picture box for `kPreviewEdge` pixels each way, to the size of the preview.
    void fit(HWND box) const;
    /// Applies an operation to a copy of the reduced picture and redraws `box` at once.
    void show(HWND box, const std::function<void(cDIBSection&)>& operation);
    /// Answers WM_DRAWITEM of the box. Small pictures are enlarged, pixel by pixel.
    void draw(const DRAWITEMSTRUCT& box) const;
    /// Another picture at the size at which operations work here; empty when there is none.
    cDIBSection at_same_size(const cDIBSection& other) const;

  private:
    cDIBSection unchanged_;
    cDIBSection shown_;
};

} // namespace kelvane
