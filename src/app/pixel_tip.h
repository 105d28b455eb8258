// The tool-tip that tells the value of the pixel under the cursor.
#pragma once

#include "image/dib_section.h"
#include "view/view_geometry.h"

#include <windows.h>

#include <string>

namespace kelvane {

/// What the tip says of a pixel, counted from the upper left: position, colour, and whether an
/// export draws it.
std::wstring pixel_text(const cDIBSection& picture, ViewPoint pixel);

class PixelTip {
  public:
    PixelTip() = default;
    ~PixelTip();
    PixelTip(const PixelTip&) = delete;
    PixelTip& operator=(const PixelTip&) = delete;

    /// Shows a text beside a point of the screen, on the same monitor. `owner`, the window that the
    /// tip belongs to, is the same each time.
    void show(HWND owner, POINT at, const std::wstring& text);
    void hide();
    bool shown() const { return shown_; }
    /// The text that was shown last.
    const std::wstring& text() const { return text_; }

  private:
    void place(POINT at) const;

    HWND tip_ = nullptr;
    HWND owner_ = nullptr;
    bool shown_ = false;
    std::wstring text_;
};

} // namespace kelvane
