// Sizes on screens of any density.
#pragma once

#include "win/gdi.h"

namespace kelvane::win {

/// Dots per inch of the window's monitor; of the system before Windows 10.
int dots_per_inch(HWND window);

/// A length given for 96 dots per inch, on the window's monitor.
int scaled(HWND window, int length);

/// GetSystemMetrics for the window's monitor.
int system_metric(HWND window, int index);

/// The fonts of messages and status lines, and of windows' captions, for the window's monitor.
Font message_font(HWND window);
Font caption_font(HWND window);

} // namespace kelvane::win
