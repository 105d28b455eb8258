// Arrow keys for controls that have no use for keys of their own, such as picture boxes.
#pragma once

#include <windows.h>

namespace kelvane::win {

/// From now on the control keeps the arrow keys from moving the focus, and its dialog receives
/// WM_KEYDOWN for them. It is painted anew when it gets or loses the focus, which it can get when
/// it has WS_TABSTOP. Ends with the control.
void take_arrow_keys(HWND control);

} // namespace kelvane::win
