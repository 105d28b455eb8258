// Edit fields that take only certain characters.
#pragma once

#include <windows.h>

namespace kelvane::win {

/// From now on the field swallows typed characters for which `accepts` is false. Control keys
/// (backspace, the clipboard's and undo's) always pass, and so does pasted text: what a field
/// holds is still to be checked. Ends with the field.
void filter_keys(HWND edit, bool (*accepts)(wchar_t));

} // namespace kelvane::win
