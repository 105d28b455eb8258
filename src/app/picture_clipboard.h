// The picture on the clipboard; `cDIBSection::CopyToClipboard` is defined beside it.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <vector>

namespace kelvane {

/// Opens the bytes of a picture file; false when they hold no picture that can be read. `last`: no
/// other file with the same picture follows.
using OpenPictureFile = std::function<bool(const std::vector<std::uint8_t>& file, bool last)>;

/// Calls `open` with the clipboard's PNG file; when there is none, or some program offers one that
/// cannot be read, with a bitmap. The clipboard is closed meanwhile. Throws `TextError` when it
/// holds no picture, `PlatformError` when another program does not let go of it.
void open_from_clipboard(HWND owner, const OpenPictureFile& open);

} // namespace kelvane
