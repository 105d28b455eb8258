// Drop-down lists. Positions count from 0.
#pragma once

#include <windows.h>

#include <string>

namespace kelvane {

inline void add_entry(HWND list, const std::wstring& text) {
    SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
}
inline void select_entry(HWND list, int position) {
    SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(position), 0);
}
inline int selected_entry(HWND list) {
    return static_cast<int>(SendMessageW(list, CB_GETCURSEL, 0, 0));
}

/// Scrolls an opened list so that it begins with entry `first`, or as near to that as the selected
/// entry in sight allows. Opening scrolls as well, after CBN_DROPDOWN: not to be called from there.
void scroll_opened_list(HWND list, int first);

} // namespace kelvane
