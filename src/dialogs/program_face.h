// The program's icon and the large lettering that its name is shown in.
#pragma once

#include "win/gdi.h"

namespace kelvane {

/// Shows the program's icon in a static control of style SS_ICON, as large as the control.
void show_program_icon(HWND control);

/// Gives a control its dialog's font at twice the size, bold. The font must outlive the control.
win::Font use_large_font(HWND control);

} // namespace kelvane
