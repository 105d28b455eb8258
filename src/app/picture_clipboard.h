// Pictures to and from device contexts and the clipboard.
#pragma once

#include "image/dib_section.h"

#include <windows.h>

#include <cstdint>
#include <vector>

namespace kelvane {

/// Copies the picture to a device context, its upper left corner at (`lDestLeft`, `lDestTop`).
/// For pictures whose pixels live in a DIB section.
void PaintPicture(const cDIBSection& picture, HDC lHDC, int lDestLeft, int lDestTop);

/// Puts the picture on the clipboard as a bitmap of the screen's format; Windows offers it as
/// device-independent bitmap too. False when that failed. `bAsDIB` has never been supported: a
/// message says so, and the clipboard stays as it is.
bool CopyToClipboard(const cDIBSection& picture, HWND owner, bool bAsDIB);

/// The bytes of a bitmap file with the clipboard's picture. Throws `TextError` when it holds none,
/// `PlatformError` when another program does not let go of the clipboard.
std::vector<std::uint8_t> bitmap_file_from_clipboard(HWND owner);

} // namespace kelvane
