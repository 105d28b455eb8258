// What the forms ask of their controls again and again.
#pragma once

#include "texts/string_table.h"

#include <windows.h>

#include <span>
#include <string>

namespace kelvane {

/// A control and its text in the string table.
struct Caption {
    int control;
    int text;
};

/// Sets the captions in the program's language.
inline void set_captions(HWND dialog, std::span<const Caption> captions) {
    for (const Caption& caption : captions)
        SetDlgItemTextW(dialog, caption.control, LoadString(caption.text).c_str());
}

// Drop-down lists; positions count from 0.

inline void add_entry(HWND list, const std::wstring& text) {
    SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
}
inline void select_entry(HWND list, int position) {
    SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(position), 0);
}
inline int selected_entry(HWND list) {
    return static_cast<int>(SendMessageW(list, CB_GETCURSEL, 0, 0));
}

} // namespace kelvane
