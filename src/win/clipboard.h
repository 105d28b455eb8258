// The clipboard between opening and closing it.
#pragma once

#include "win/gdi.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kelvane::win {

/// Opens the clipboard and closes it in the destructor. Another program may hold it for a moment,
/// so opening is tried for up to half a second. Throws `PlatformError` when that fails.
class Clipboard {
  public:
    /// `owner`: null, or the window that becomes the owner of what is put.
    explicit Clipboard(HWND owner);
    ~Clipboard() { CloseClipboard(); }
    Clipboard(const Clipboard&) = delete;
    Clipboard& operator=(const Clipboard&) = delete;

    /// Replaces the content of the clipboard by a bitmap, which then belongs to the system; the
    /// system offers it as a device-independent bitmap as well. False on failure; `bitmap` then
    /// still owns it.
    bool put(Bitmap& bitmap) const;
    /// A copy of the picture as a packed device-independent bitmap (header, colours, rows), into
    /// which the system converts every kind of bitmap; empty when the clipboard holds none.
    std::vector<std::uint8_t> packed_bitmap() const;
    /// Whether it holds one, without having it converted.
    static bool has_bitmap() { return IsClipboardFormatAvailable(CF_DIB) != FALSE; }
    /// A copy of the PNG file that graphics programs offer beside the bitmap, with the transparency
    /// that bitmaps lose; empty without one. Bytes may follow its end.
    std::vector<std::uint8_t> png_file() const;
    /// The text with its final zero cut off; empty without one.
    std::wstring text() const;
};

} // namespace kelvane::win
