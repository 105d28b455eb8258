// Where controls stand in their dialog. All lengths are in pixels of the screen.
#pragma once

#include <windows.h>

namespace kelvane::win {

void move_by(HWND control, LONG right, LONG down);

/// With the frame.
SIZE size_of(HWND window);

} // namespace kelvane::win
