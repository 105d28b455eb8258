// Finding entries of a drop-down list by typing the beginning of a word.
#pragma once

#include <windows.h>

namespace kelvane::win {

/// From now on letters typed one after the other find the first entry in which they begin the text
/// or its second word: "21" and "tp" both find "21 tPlace (B)". A pause of a second or letters that
/// find nothing start anew; a letter that then finds nothing is ignored. The parent gets
/// CBN_SELCHANGE. `list`: a combo box of style CBS_DROPDOWNLIST. Ends with the list.
void find_by_typing(HWND list);

} // namespace kelvane::win
