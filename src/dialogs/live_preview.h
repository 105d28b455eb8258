// The preview of an operation, following its dialog's controls.
#pragma once

#include "image/dib_section.h"

#include <windows.h>

#include <functional>

namespace kelvane {

/// Works on a copy of the picture reduced to the preview's size, so that large pictures are shown
/// as fluently as small ones.
class LivePreview {
  public:
    LivePreview() = default; // of no picture
    explicit LivePreview(const cDIBSection& picture);

    /// Makes `box`, a picture box for `kPreviewEdge` pixels each way, as small as what it shows.
    void fit(HWND box) const;
    /// Applies an operation to the unchanged preview and has `box`, a picture box, drawn anew.
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
