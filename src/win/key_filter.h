// Edit fields that take only certain characters.
#pragma once

#include <windows.h>

namespace kelvane::win {

/// From now on the field ignores typed characters for which `accepts` is false. Control keys
/// (backspace, the clipboard's and undo's) always pass, and so does pasted text: the field's
/// content still has to be checked. Ends with the field.
void filter_keys(HWND edit, bool (*accepts)(wchar_t));

/// From now on a comma that is typed or pasted into the field becomes a point, the decimal
/// separator of the program. Ends with the field.
void turn_commas_into_points(HWND edit);

} // namespace kelvane::win
