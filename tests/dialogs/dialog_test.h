// Fixture of the tests of dialogs: shows a dialog, acts on it, reads what it paints.
#pragma once

#include "settings/scratch_folder.h"
#include "support/pictures.h"
#include "support/windows/modal_script.h"
#include "texts/string_table.h"
#include "win/dialog.h"
#include "win/gdi.h"

#include "ids.h"

#include <commctrl.h>
#include <gmock/gmock.h>

#include <set>

namespace kelvane::test {

using namespace std::string_literals;
using testing::ElementsAre;

struct DialogTest : testing::Test {
    const ScratchFolder scratch;
    const SettingsFile settings = scratch.settings();
    ModalScript script;
    wchar_t refusal_icon = L'!';

    /// Shows the dialog, lets `act` act on it and presses `button`, which has to close it.
    template <typename Form>
    void show(
        Form& dialog, int button, const ModalScript::Step& act = [](HWND) {}) {
        script.expect_dialog(act, button);
        EXPECT_EQ(dialog.show_modal(nullptr), button == IDOK);
        EXPECT_EQ(dialog.Cancelled, button != IDOK);
    }
    /// OK shows a message under the dialog's title and leaves the dialog open.
    void expect_refused(HWND dialog) {
        script.expect_message(
            testing::StartsWith(win::window_text(dialog) + L' ' + refusal_icon + L" [OK]: "));
        press(dialog, IDOK);
        EXPECT_TRUE(IsWindowVisible(dialog));
    }
    void expect_refused(HWND dialog, int field, const std::wstring& text) {
        SCOPED_TRACE(testing::PrintToString(text));
        type_text(dialog, field, text);
        expect_refused(dialog);
    }
    std::wstring stored(const wchar_t* key) const {
        return settings.ReadIniValue(L"imageexport", key);
    }
};

inline bool is_checked(HWND dialog, int button) {
    return IsDlgButtonChecked(dialog, button) == BST_CHECKED;
}

inline bool is_visible(HWND dialog, int control) {
    return IsWindowVisible(GetDlgItem(dialog, control));
}

inline LRESULT position_of(HWND dialog, int slider) {
    return SendDlgItemMessageW(dialog, slider, TBM_GETPOS, 0, 0);
}

/// A pixel of a control as it is on the screen.
inline COLORREF shown_at(HWND dialog, int control, int x, int y) {
    const HWND window = GetDlgItem(dialog, control);
    UpdateWindow(window);
    return GetPixel(win::WindowContext(window).get(), x, y);
}

/// The colours in the upper left of a picture box, a little inside.
inline std::set<COLORREF> shown_in(HWND dialog, int box) {
    std::set<COLORREF> colours;
    for (int pixel = 0; pixel < 400; ++pixel)
        colours.insert(shown_at(dialog, box, 40 + pixel % 20, 40 + pixel / 20));
    return colours;
}

} // namespace kelvane::test
