// Handles of the Windows graphics interface for portable declarations: the types that windows.h
// calls HDC, HBITMAP and HWND.
#pragma once

#include <cstdint>

struct HDC__;
struct HBITMAP__;
struct HWND__;

namespace kelvane {

using DeviceContext = ::HDC__*;
using BitmapHandle = ::HBITMAP__*;
using WindowHandle = ::HWND__*;

/// The raster operation SRCCOPY: source pixels replace those of the destination.
inline constexpr std::uint32_t kSourceCopy = 0x00CC0020;

} // namespace kelvane
