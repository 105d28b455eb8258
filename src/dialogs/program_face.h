// The program's icon and the large lettering that its name is shown in.
#pragma once

#include "win/gdi.h"

namespace kelvane {

/// The program's icon at this size in pixels.
win::Icon program_icon(int width, int height);

struct ProgramFace {
    win::Icon icon;
    win::Font font;
};

/// Shows the program's icon in the static control `icon` of style SS_ICON, as large as the control,
/// and gives the control `name` the dialog's font at twice the size, bold. The result must outlive
/// both controls.
ProgramFace show_program_face(HWND dialog, int icon, int name);

} // namespace kelvane
