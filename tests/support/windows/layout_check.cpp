#include "support/windows/layout_check.h"

#include "win/dialog.h"
#include "win/gdi.h"

#include <gtest/gtest.h>

#include <string>

namespace kelvane::test {
namespace {

struct Room {
    LONG width;
    LONG height;
};

std::wstring class_of(HWND window) {
    wchar_t name[64];
    GetClassNameW(window, name, std::size(name));
    return name;
}

bool is_picture(HWND control) {
    const LONG type = GetWindowLongW(control, GWL_STYLE) & SS_TYPEMASK;
    return class_of(control) == L"Static" && (type == SS_OWNERDRAW || type == SS_ICON);
}

// What remains of a control beside its box, its frame and its margins.
Room room_of(HWND control) {
    RECT area{};
    GetClientRect(control, &area);
    if (class_of(control) == L"Static") return {area.right, area.bottom};
    switch (GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK) {
    case BS_PUSHBUTTON:
    case BS_DEFPUSHBUTTON:
    case BS_GROUPBOX:
        return {area.right - 12, area.bottom - 4};
    default:
        return {area.right - GetSystemMetrics(SM_CXMENUCHECK) - 6, area.bottom};
    }
}

Room needed_by(HWND control, const std::wstring& text, LONG width) {
    const win::WindowContext context(control);
    const auto font = reinterpret_cast<HGDIOBJ>(SendMessageW(control, WM_GETFONT, 0, 0));
    const win::Selected selected(context.get(), font);
    RECT needed{0, 0, width, 0};
    const bool wraps = class_of(control) == L"Static";
    DrawTextW(context.get(), text.c_str(), -1, &needed,
              DT_CALCRECT | (wraps ? DT_WORDBREAK : DT_SINGLELINE));
    return {needed.right, needed.bottom};
}

void expect_inside(HWND dialog, HWND control) {
    RECT area{};
    GetClientRect(dialog, &area);
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    EXPECT_TRUE(place.left >= 0 && place.top >= 0 && place.right <= area.right &&
                place.bottom <= area.bottom)
        << "control " << GetDlgCtrlID(control) << " reaches over the border";
}

} // namespace

void expect_captions_fit(HWND dialog) {
    ASSERT_TRUE(IsWindowVisible(dialog));
    EXPECT_FALSE(win::window_text(dialog).empty()) << "no title";
    for (HWND control = GetWindow(dialog, GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT)) {
        if (!IsWindowVisible(control)) continue;
        expect_inside(dialog, control);
        const std::wstring kind = class_of(control);
        if ((kind != L"Button" && kind != L"Static") || is_picture(control)) continue;
        const std::wstring text = win::window_text(control);
        EXPECT_FALSE(text.empty()) << "control " << GetDlgCtrlID(control) << " is empty";
        const Room room = room_of(control);
        const Room needed = needed_by(control, text, room.width);
        EXPECT_TRUE(needed.width <= room.width && needed.height <= room.height)
            << testing::PrintToString(text) << " needs " << needed.width << " x " << needed.height
            << ", has " << room.width << " x " << room.height;
    }
}

} // namespace kelvane::test
