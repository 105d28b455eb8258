// The picture on the clipboard; `cDIBSection::CopyToClipboard` is defined beside it.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

namespace kelvane {

/// The bytes of a picture file with the clipboard's picture: its PNG file, or else a bitmap. Throws
/// `TextError` when it holds none, `PlatformError` when another program does not let go of the
/// clipboard.
std::vector<std::uint8_t> picture_file_from_clipboard(HWND owner);

} // namespace kelvane
