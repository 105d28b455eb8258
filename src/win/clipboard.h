// The clipboard between opening and closing it.
#pragma once

#include "win/gdi.h"

#include <cstdint>
#include <vector>

namespace kelvane::win {

/// Holds the clipboard open. Another program may hold it for a moment, so opening is tried for up
/// to half a second. Throws `PlatformError` when it cannot be had.
class Clipboard {
  public:
    /// `owner`: null, or the window that becomes the owner of what is put.
    explicit Clipboard(HWND owner);
    ~Clipboard() { CloseClipboard(); }
    Clipboard(const Clipboard&) = delete;
    Clipboard& operator=(const Clipboard&) = delete;

    /// Replaces what the clipboard holds by a bitmap, which then belongs to the system; the system
    /// offers it as a device-independent bitmap as well. False when it was not taken and is still
    /// `bitmap`'s.
    bool put(Bitmap& bitmap) const;
    /// A copy of the picture as a packed device-independent bitmap (header, colours, rows), into
    /// which the system converts every kind of bitmap; empty when the clipboard holds none.
    std::vector<std::uint8_t> packed_bitmap() const;
};

} // namespace kelvane::win
