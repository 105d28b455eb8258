// What the tests of dialogs share: showing one, filling it, in both languages.
#pragma once

#include "settings/string_table.h"
#include "support/windows/layout_check.h"
#include "support/windows/modal_script.h"

#include <windows.h>

namespace kelvane::test {

/// The program's language while it lives.
class InLanguage {
  public:
    explicit InLanguage(int offset) { set_language_offset(offset); }
    ~InLanguage() { set_language_offset(kEnglishOffset); }
    InLanguage(const InLanguage&) = delete;
    InLanguage& operator=(const InLanguage&) = delete;
};

/// Shows the dialog, lets `fill` act on it and presses `button`.
template <class Form> void show(Form& form, const ModalScript::Step& fill, int button) {
    ModalScript script;
    script.expect_dialog(fill, button);
    form.show_modal(nullptr);
}

/// Shows the dialog in both languages and looks whether its captions fit.
template <class Form> void expect_layout(Form& form) {
    for (const int language : {kGermanOffset, kEnglishOffset}) {
        const InLanguage in_language(language);
        show(form, expect_captions_fit, IDCANCEL);
    }
}

/// Chooses an entry of a drop-down list as the user does.
inline void choose(HWND dialog, int list, int position) {
    SendDlgItemMessageW(dialog, list, CB_SETCURSEL, static_cast<WPARAM>(position), 0);
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(list, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, list)));
}

inline void click(HWND dialog, int button) {
    SendDlgItemMessageW(dialog, button, BM_CLICK, 0, 0);
}

inline bool is_checked(HWND dialog, int button) {
    return IsDlgButtonChecked(dialog, button) == BST_CHECKED;
}

} // namespace kelvane::test
