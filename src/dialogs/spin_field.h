// Fields for a whole number with arrows (up-down control) beside them.
#pragma once

#include "dialogs/field_input.h"
#include "settings/catalogue.h"

#include <windows.h>

#include <commctrl.h>

#include <optional>
#include <string_view>

namespace kelvane {

struct SpinField {
    int id;
    int spin; ///< the up-down control; it steps through the numbers that the field takes
    NumberSetting setting; ///< where the number is remembered; its range is the field's
    int step = 1;          ///< 2: odd numbers only
};

/// Makes the up-down class known to the system; before the first dialog that has one is shown.
inline void register_spins() {
    INITCOMMONCONTROLSEX classes{};
    classes.dwSize = sizeof classes;
    classes.dwICC = ICC_UPDOWN_CLASS;
    InitCommonControlsEx(&classes);
}

/// Joins a dialog's field and its arrows.
inline void prepare_spin_field(HWND dialog, const SpinField& field) {
    constexpr int kDigits = 4; // with a sign
    UDACCEL step{0, static_cast<UINT>(field.step)};
    const HWND spin = GetDlgItem(dialog, field.spin);
    SendMessageW(spin, UDM_SETBUDDY, reinterpret_cast<WPARAM>(GetDlgItem(dialog, field.id)), 0);
    SendMessageW(spin, UDM_SETRANGE32, static_cast<WPARAM>(field.setting.lowest),
                 field.setting.highest);
    SendMessageW(spin, UDM_SETACCEL, 1, reinterpret_cast<LPARAM>(&step));
    SendDlgItemMessageW(dialog, field.id, EM_LIMITTEXT, kDigits, 0);
}

/// The number in `text`; nothing when the field does not take it.
inline std::optional<int> number_for(const SpinField& field, std::wstring_view text) {
    const auto value = whole_number(text, field.setting.lowest, field.setting.highest);
    return value && (*value - field.setting.lowest) % field.step == 0 ? value : std::nullopt;
}

} // namespace kelvane
