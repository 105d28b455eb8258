// Arrow keys that the dialog handles instead of the control: those of picture boxes and of fields
// in a grid.
#pragma once

#include <windows.h>

namespace kelvane::win {

/// From now on the control keeps the arrow keys from moving the focus, and its dialog receives
/// WM_KEYDOWN for them. It is painted anew when it gets or loses the focus, which it can get when
/// it has WS_TABSTOP. Ends with the control.
void take_arrow_keys(HWND control);

/// From now on an arrow key that cannot move the caret in this one-line field is sent to its dialog
/// as WM_KEYDOWN: Left at the start of the text, Right at its end, Up and Down always. Keys with
/// Shift or Ctrl are not sent. Ends with the field.
void pass_on_arrow_keys(HWND edit);

} // namespace kelvane::win
