// Pictures in dialogs: a static control with SS_OWNERDRAW becomes a picture box.
#pragma once

#include "image/dib_section.h"

#include <windows.h>

namespace kelvane::win {

/// Draws the whole picture over `target`; an empty one draws nothing. Pixels are copied as they
/// are where the sizes agree and averaged where they do not.
void draw_picture(HDC context, const RECT& target, const cDIBSection& picture);

/// Answers WM_DRAWITEM of a picture box: the picture at the top left, `zoom` times its size, and
/// the dialog's background around it, without flicker.
void draw_picture_box(const DRAWITEMSTRUCT& box, const cDIBSection& picture, double zoom = 1);

/// The zoom at which `pixels` fill the width of a picture box: 1 on an ordinary screen, more where
/// dialogs are drawn larger. Dialog units never come out exactly, so what is nearly 1 is 1.
double box_zoom(HWND box, int pixels);

} // namespace kelvane::win
