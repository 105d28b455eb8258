// The right-click menu of a picture.
#pragma once

#include "app/picture_view.h"

#include <windows.h>

namespace kelvane {

/// Shows the menu at a point of `window`, the one that shows `view`, until the user has chosen. A
/// zoom keeps what is at the point there; every other entry is a command of the menu bar and sent
/// to `frame`, the main window.
void show_picture_menu(PictureView& view, HWND window, HWND frame, POINT point);

} // namespace kelvane
