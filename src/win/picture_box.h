// Pictures in dialogs: a static control with SS_OWNERDRAW becomes a picture box.
#pragma once

#include "image/dib_section.h"

#include <windows.h>

namespace kelvane::win {

/// Draws the whole picture over `target`; an empty one draws nothing. Pixels stay
/// squares of one colour where the size is a whole multiple, and are averaged where it is not.
void draw_picture(HDC context, const RECT& target, const cDIBSection& picture);

/// Answers WM_DRAWITEM of a picture box: the picture at the top left, `zoom` times its size, and
/// the dialog's background around it, without flicker.
void draw_picture_box(const DRAWITEMSTRUCT& box, const cDIBSection& picture, double zoom = 1);

/// Zoom at which a window draws pictures, so that they grow with its texts: 1 at 96 dots per inch,
/// 2 at 192.
double picture_zoom(HWND window);

/// Sizes the inside of a picture box for a picture of this size at `picture_zoom`. Dialog units
/// cannot express that size exactly.
void fit_picture_box(HWND box, int width, int height);

} // namespace kelvane::win
