// Arrow keys that a control's dialog handles: of picture boxes, which have no use for keys of their
// own, and of fields in a grid.
#pragma once

#include <windows.h>

namespace kelvane::win {

/// From now on the control keeps the arrow keys from moving the focus, and its dialog receives
/// WM_KEYDOWN for them. It is painted anew when it gets or loses the focus, which it can get when
/// it has WS_TABSTOP. Ends with the control.
void take_arrow_keys(HWND control);

/// From now on an arrow key that has nowhere to go in the text of this one-line field is sent to
/// its dialog as WM_KEYDOWN: Left from the text's or the selection's beginning, Right from its end,
/// Up and Down always. Together with Shift or Ctrl keys stay the field's own. Ends with the field.
void pass_on_arrow_keys(HWND edit);

} // namespace kelvane::win
