// Showing a dialog, acting on it and closing it.
#pragma once

#include "support/windows/modal_script.h"
#include "win/dialog.h"

#include <windows.h>

namespace kelvane::test {

/// Shows the dialog, lets `fill` act on it and presses `button`.
inline void show(win::Dialog& dialog, const ModalScript::Step& fill, int button) {
    ModalScript script;
    script.expect_dialog(fill, button);
    dialog.show_modal(nullptr);
}

inline void click(HWND dialog, int button) {
    SendDlgItemMessageW(dialog, button, BM_CLICK, 0, 0);
}

inline bool is_checked(HWND dialog, int button) {
    return IsDlgButtonChecked(dialog, button) == BST_CHECKED;
}

} // namespace kelvane::test
