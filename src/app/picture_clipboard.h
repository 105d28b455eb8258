// The picture on the clipboard; `cDIBSection::CopyToClipboard` is defined beside it.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

namespace kelvane {

/// The bytes of a picture file with the clipboard's picture: its PNG file, or else a bitmap. A PNG
/// file that cannot be read is returned only when there is no bitmap. Throws `TextError` when the
/// clipboard holds no picture, `PlatformError` when another program does not let go of the
/// clipboard.
std::vector<std::uint8_t> picture_file_from_clipboard(HWND owner);

} // namespace kelvane
